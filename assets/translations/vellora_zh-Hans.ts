<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_Hans" sourcelanguage="en">
<context>
    <name></name>
    <message id="toast.noTray">
        <source>Vellora is running. This desktop has no tray: start Vellora again to see its commands.</source>
        <translation>Vellora 正在运行。此桌面没有系统托盘：再次启动 Vellora 即可查看其命令。</translation>
    </message>
    <message id="toast.reopenFailed">
        <source>This capture can no longer be read</source>
        <translation>此截图已无法读取</translation>
    </message>
    <message id="alert.clearHistory.title">
        <source>Clear the capture history?</source>
        <translation>清空截图历史记录？</translation>
    </message>
    <message id="alert.clearHistory.body">
        <source>The recent captures will be deleted. Saved files stay where they are.</source>
        <translation>最近的截图将被删除。已保存的文件会保留在原处。</translation>
    </message>
    <message id="alert.clearHistory.confirm">
        <source>Clear History</source>
        <translation>清空历史记录</translation>
    </message>
    <message id="alert.cancel">
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message id="load.file.title">
        <source>Open a picture</source>
        <translation>打开图片</translation>
    </message>
    <message id="load.file.filter">
        <source>Pictures (%1)</source>
        <translation>图片 (%1)</translation>
    </message>
    <message id="alert.cleanupRecordings.title" numerus="yes">
        <source>Move %n recording(s) to the Trash?</source>
        <translation>
            <numerusform>将 %n 个录屏移到回收站？</numerusform>
        </translation>
    </message>
    <message id="alert.cleanupRecordings.body">
        <source>They take up %1.</source>
        <translation>占用空间：%1。</translation>
    </message>
    <message id="alert.cleanupRecordings.openNote">
        <source>Recordings that are open stay.</source>
        <translation>已打开的录屏会保留。</translation>
    </message>
    <message id="alert.cleanupRecordings.confirm">
        <source>Move to Trash</source>
        <translation>移到回收站</translation>
    </message>
    <message id="toast.recordingsTrashed">
        <source>Recordings moved to the Trash</source>
        <translation>录屏已移到回收站</translation>
    </message>
    <message id="alert.screenRecording.title">
        <source>Vellora is not allowed to see the screen</source>
        <translation>Vellora 无权查看屏幕</translation>
    </message>
    <message id="alert.screenRecording.body">
        <source>Allow Vellora to record the screen in the desktop&apos;s privacy settings, then try again.</source>
        <translation>请在桌面的隐私设置中允许 Vellora 录制屏幕，然后重试。</translation>
    </message>
    <message id="alert.accessibility.title">
        <source>Vellora is not allowed to follow the pointer</source>
        <translation>Vellora 无权跟踪指针</translation>
    </message>
    <message id="alert.accessibility.body">
        <source>Allow Vellora to use accessibility in the desktop&apos;s privacy settings, then try again.</source>
        <translation>请在桌面的隐私设置中允许 Vellora 使用辅助功能，然后重试。</translation>
    </message>
    <message id="alert.screenRecording.open">
        <source>Open Settings</source>
        <translation>打开设置</translation>
    </message>
    <message id="load.error.noPicture">
        <source>No picture could be read from the clipboard</source>
        <translation>无法从剪贴板读取图片</translation>
    </message>
    <message id="settings.about.title">
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message id="settings.about.summary">
        <source>Screenshots, recordings and live streams</source>
        <translation>截图、录屏与直播</translation>
    </message>
    <message id="settings.about.version">
        <source>Version %1</source>
        <translation>版本 %1</translation>
    </message>
    <message id="settings.about.licence">
        <source>Licence</source>
        <translation>许可证</translation>
    </message>
    <message id="settings.about.website">
        <source>Website</source>
        <translation>网站</translation>
    </message>
    <message id="settings.about.issues">
        <source>Report a problem</source>
        <translation>报告问题</translation>
    </message>
    <message id="settings.about.licences">
        <source>Licences of fonts, icons and libraries</source>
        <translation>字体、图标和库的许可证</translation>
    </message>
    <message id="settings.general.title">
        <source>General</source>
        <translation>常规</translation>
    </message>
    <message id="settings.general.afterCapture">
        <source>After a capture</source>
        <translation>截图后</translation>
    </message>
    <message id="settings.clipboard.title">
        <source>Clipboard</source>
        <translation>剪贴板</translation>
    </message>
    <message id="settings.clipboard.copyAs">
        <source>Copy captures as</source>
        <translation>截图复制为</translation>
    </message>
    <message id="settings.clipboard.info">
        <source>Some programs paste files, others paste pictures. With both, each takes the one it understands.</source>
        <translation>有些程序粘贴文件，有些程序粘贴图片。两者都复制时，各程序会取用自己支持的形式。</translation>
    </message>
    <message id="settings.general.saving">
        <source>Saving</source>
        <translation>保存</translation>
    </message>
    <message id="settings.general.saveFolder">
        <source>Folder for captures</source>
        <translation>截图保存位置</translation>
    </message>
    <message id="settings.general.choose">
        <source>Choose…</source>
        <translation>选择…</translation>
    </message>
    <message id="settings.general.resetDesktop">
        <source>Use Desktop Folder</source>
        <translation>使用桌面</translation>
    </message>
    <message id="settings.general.resetDesktopHelp">
        <source>Save captures to the Desktop folder again</source>
        <translation>重新将截图保存到桌面文件夹</translation>
    </message>
    <message id="settings.general.language">
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message id="settings.general.interfaceLanguage">
        <source>Language of the interface</source>
        <translation>界面语言</translation>
    </message>
    <message id="settings.general.systemLanguage">
        <source>System language</source>
        <translation>跟随系统</translation>
    </message>
    <message id="settings.general.keepOneAction">
        <source>At least one action has to stay on.</source>
        <translation>至少要保留一项操作为开启状态。</translation>
    </message>
    <message id="settings.general.chooseTitle">
        <source>Choose a folder for captures</source>
        <translation>选择保存截图的文件夹</translation>
    </message>
    <message id="settings.general.showEditor">
        <source>Open in the editor</source>
        <translation>在编辑器中打开</translation>
    </message>
    <message id="settings.general.copy">
        <source>Copy to the clipboard</source>
        <translation>复制到剪贴板</translation>
    </message>
    <message id="settings.general.save">
        <source>Save as a file</source>
        <translation>保存为文件</translation>
    </message>
    <message id="settings.general.pin">
        <source>Pin to the screen</source>
        <translation>固定在屏幕上</translation>
    </message>
    <message id="settings.general.showEditorHelp">
        <source>In the editor, ready to be annotated.</source>
        <translation>在编辑器中打开，可立即添加标注。</translation>
    </message>
    <message id="settings.general.copyHelp">
        <source>Ready to be pasted into another program.</source>
        <translation>可直接粘贴到其他程序中。</translation>
    </message>
    <message id="settings.general.saveHelp">
        <source>As a PNG picture in the folder below.</source>
        <translation>以 PNG 图片格式保存到下方的文件夹中。</translation>
    </message>
    <message id="settings.general.pinHelp">
        <source>It stays above all windows. Takes the place of the editor.</source>
        <translation>始终显示在所有窗口之上，且不再打开编辑器。</translation>
    </message>
    <message id="settings.clipboard.fileAndImage">
        <source>File and picture</source>
        <translation>文件和图片</translation>
    </message>
    <message id="settings.clipboard.fileOnly">
        <source>File only</source>
        <translation>仅文件</translation>
    </message>
    <message id="settings.clipboard.imageOnly">
        <source>Picture only</source>
        <translation>仅图片</translation>
    </message>
    <message id="settings.shortcuts.title">
        <source>Shortcuts</source>
        <translation>快捷键</translation>
    </message>
    <message id="settings.title">
        <source>Vellora Settings</source>
        <translation>Vellora 设置</translation>
    </message>
    <message id="settings.pages">
        <source>Settings pages</source>
        <translation>设置页面</translation>
    </message>
    <message id="shortcut.recording">
        <source>Press the keys…</source>
        <translation>请按下按键…</translation>
    </message>
    <message id="shortcut.recordingHelp">
        <source>Press the new combination. Esc stops, Delete goes back to the default.</source>
        <translation>请按下新的组合键。Esc 取消，Delete 恢复默认值。</translation>
    </message>
    <message id="shortcut.none">
        <source>None</source>
        <translation>无</translation>
    </message>
    <message id="shortcut.startHelp">
        <source>Click to record another combination</source>
        <translation>单击以设置其他组合键</translation>
    </message>
    <message id="settings.shortcuts.conflict">
        <source>%1 already belongs to “%2”.</source>
        <translation>%1 已分配给“%2”。</translation>
    </message>
    <message id="settings.shortcuts.group">
        <source>Global shortcuts</source>
        <translation>全局快捷键</translation>
    </message>
    <message id="settings.shortcuts.info">
        <source>They work in every program. Click a shortcut and press the new combination: with Ctrl, Alt or Super, or a function key alone.</source>
        <oldsource>They work in every program. Click a shortcut, then press the new combination: with Ctrl, Alt or Super, or a
</oldsource>
        <translation>在所有程序中都有效。单击某个快捷键，然后按下新的组合键：须包含 Ctrl、Alt 或 Super，或单独使用一个功能键。</translation>
    </message>
    <message id="shortcut.reset">
        <source>Back to the default</source>
        <translation>恢复默认值</translation>
    </message>
    <message id="settings.shortcuts.heldElsewhere">
        <source>Another program holds %1. Choose another combination, or free it there.</source>
        <translation>%1 已被其他程序占用。请选择其他组合键，或在该程序中取消占用。</translation>
    </message>
    <message id="settings.shortcuts.fnHint">
        <source>If the F-keys of this keyboard do something else, hold Fn as well.</source>
        <translation>如果此键盘的 F 键另有功能，请同时按住 Fn 键。</translation>
    </message>
    <message id="menu.captureArea">
        <source>Capture Area</source>
        <translation>截取区域</translation>
    </message>
    <message id="menu.captureWindow">
        <source>Capture Window</source>
        <translation>截取窗口</translation>
    </message>
    <message id="menu.captureFullscreen">
        <source>Capture Full Screen</source>
        <translation>截取全屏</translation>
    </message>
    <message id="menu.captureScrolling">
        <source>Capture Scrolling Page</source>
        <translation>截取滚动页面</translation>
    </message>
    <message id="menu.captureText">
        <source>Capture Text</source>
        <translation>截取文字</translation>
    </message>
    <message id="menu.moreCaptures">
        <source>More Captures</source>
        <translation>更多截图方式</translation>
    </message>
    <message id="menu.captureElement">
        <source>Capture Element</source>
        <translation>截取界面元素</translation>
    </message>
    <message id="menu.captureAreaSized">
        <source>Capture Fixed Size…</source>
        <translation>截取固定尺寸…</translation>
    </message>
    <message id="menu.captureFullscreenDelayed">
        <source>Capture Full Screen in 3 Seconds</source>
        <translation>3 秒后截取全屏</translation>
    </message>
    <message id="menu.loadFromClipboard">
        <source>Load from Clipboard</source>
        <translation>从剪贴板载入</translation>
    </message>
    <message id="menu.loadFromFile">
        <source>Load from File…</source>
        <translation>从文件载入…</translation>
    </message>
    <message id="menu.reopen">
        <source>Reopen Last Capture</source>
        <translation>重新打开上次截图</translation>
    </message>
    <message id="menu.reopenMore">
        <source>Recent Captures</source>
        <translation>最近的截图</translation>
    </message>
    <message id="menu.clearHistory">
        <source>Clear History…</source>
        <translation>清空历史记录…</translation>
    </message>
    <message id="menu.compressImages">
        <source>Compress Images…</source>
        <translation>压缩图片…</translation>
    </message>
    <message id="menu.recordRegion">
        <source>Record Area</source>
        <translation>录制区域</translation>
    </message>
    <message id="menu.stopRecording">
        <source>Stop Recording</source>
        <translation>停止录制</translation>
    </message>
    <message id="menu.pauseRecording">
        <source>Pause Recording</source>
        <translation>暂停录制</translation>
    </message>
    <message id="menu.resumeRecording">
        <source>Resume Recording</source>
        <translation>继续录制</translation>
    </message>
    <message id="menu.recordWindow">
        <source>Record Window</source>
        <translation>录制窗口</translation>
    </message>
    <message id="menu.recordFullscreen">
        <source>Record Full Screen</source>
        <translation>录制全屏</translation>
    </message>
    <message id="menu.recentRecordings">
        <source>Recent Recordings</source>
        <translation>最近的录屏</translation>
    </message>
    <message id="menu.openRecordingsFolder">
        <source>Open Recordings Folder</source>
        <translation>打开录屏文件夹</translation>
    </message>
    <message id="menu.cleanupRecordings">
        <source>Clean Up Recordings…</source>
        <translation>清理录屏…</translation>
    </message>
    <message id="menu.importVideo">
        <source>Import Video…</source>
        <translation>导入视频…</translation>
    </message>
    <message id="menu.startLive">
        <source>Go Live…</source>
        <translation>开始直播…</translation>
    </message>
    <message id="menu.stopLive">
        <source>Stop Live</source>
        <translation>结束直播</translation>
    </message>
    <message id="menu.settings">
        <source>Settings…</source>
        <translation>设置…</translation>
    </message>
    <message id="menu.quit">
        <source>Quit Vellora</source>
        <translation>退出 Vellora</translation>
    </message>
    <message id="toast.copiedAndSavedTo">
        <source>Copied and saved to %1</source>
        <translation>已复制并保存到 %1</translation>
    </message>
    <message id="toast.copied">
        <source>Copied</source>
        <translation>已复制</translation>
    </message>
    <message id="toast.savedTo">
        <source>Saved to %1</source>
        <translation>已保存到 %1</translation>
    </message>
    <message id="toast.captureOutputFailed">
        <source>Copying or saving failed; the capture is kept in the history</source>
        <translation>复制或保存失败；截图已保留在历史记录中</translation>
    </message>
    <message id="toast.saveFailed">
        <source>Saving to %1 failed; the capture is kept in the history</source>
        <translation>无法保存到 %1；截图已保留在历史记录中</translation>
    </message>
    <message id="countdown.help">
        <source>Capture in a moment. Click or press Escape to cancel.</source>
        <translation>即将截图。单击或按 Esc 取消。</translation>
    </message>
    <message id="countdown.name">
        <source>Countdown</source>
        <translation>倒计时</translation>
    </message>
    <message id="overlay.badge.scaledSize">
        <source>%1 px  ·  %2 × %3 pt</source>
        <translation>%1 px  ·  %2 × %3 pt</translation>
    </message>
    <message id="overlay.hint.area">
        <source>Drag an area or click a window  ·  Space from the keyboard  ·  Esc cancels</source>
        <translation>拖出区域或单击窗口  ·  空格：用键盘选取  ·  Esc：取消</translation>
    </message>
    <message id="overlay.hint.text">
        <source>Drag over the text to read  ·  Esc cancels</source>
        <translation>拖选要识别的文字  ·  Esc：取消</translation>
    </message>
    <message id="overlay.hint.scrolling">
        <source>Drag over the part that scrolls  ·  Esc cancels</source>
        <translation>拖选会滚动的部分  ·  Esc：取消</translation>
    </message>
    <message id="overlay.hint.recording">
        <source>Drag the area to record or click a window  ·  Esc cancels</source>
        <translation>拖出要录制的区域或单击窗口  ·  Esc：取消</translation>
    </message>
    <message id="overlay.hint.adjust">
        <source>Drag the handles or use the arrow keys  ·  Return takes it  ·  Esc starts over</source>
        <translation>拖动控制点或使用方向键调整  ·  Enter：确认  ·  Esc：重新选取</translation>
    </message>
    <message id="overlay.hint.window">
        <source>Click a window  ·  Tab goes through them  ·  Esc cancels</source>
        <translation>单击窗口  ·  Tab：下一个窗口  ·  Esc：取消</translation>
    </message>
    <message id="history.yesterday">
        <source>Yesterday</source>
        <translation>昨天</translation>
    </message>
    <message id="load.error.notFound">
        <source>The file does not exist</source>
        <translation>文件不存在</translation>
    </message>
    <message id="load.error.notPermitted">
        <source>You may not read this file</source>
        <translation>您无权读取此文件</translation>
    </message>
    <message id="load.error.notAFile">
        <source>This is not a file</source>
        <translation>这不是文件</translation>
    </message>
    <message id="load.error.tooLarge">
        <source>The picture is too large</source>
        <translation>图片过大</translation>
    </message>
    <message id="load.error.notAnImage">
        <source>This is not a picture Vellora can read</source>
        <translation>这不是 Vellora 可以读取的图片</translation>
    </message>
    <message id="load.error.unsupported">
        <source>This kind of picture cannot be read</source>
        <translation>无法读取此类图片</translation>
    </message>
    <message id="load.error.outOfMemory">
        <source>There is not enough memory for the picture</source>
        <translation>内存不足，无法载入图片</translation>
    </message>
    <message id="load.error.damaged">
        <source>The picture is damaged</source>
        <translation>图片已损坏</translation>
    </message>
    <message id="capture.error.windowGone">
        <source>The window is gone</source>
        <translation>该窗口已不存在</translation>
    </message>
    <message id="capture.error.cropFailed">
        <source>Nothing of that area is on the screen any more</source>
        <translation>该区域已不在屏幕上</translation>
    </message>
    <message id="capture.error.noDisplay">
        <source>The screen is not there any more</source>
        <translation>该屏幕已不可用</translation>
    </message>
    <message id="capture.error.failed">
        <source>The screen cannot be captured</source>
        <translation>无法截取屏幕</translation>
    </message>
    <message id="toast.waylandSession">
        <source>This is a Wayland session: for now Vellora sees only programs that use X11</source>
        <translation>这是 Wayland 会话：目前 Vellora 只能看到使用 X11 的程序</translation>
    </message>
    <message id="toast.recovered" numerus="yes">
        <source>%n capture(s) that were open when Vellora ended are in the history</source>
        <translation>
            <numerusform>Vellora 退出时仍打开的 %n 张截图已保留在历史记录中</numerusform>
        </translation>
    </message>
    <message id="toast.pinFailed">
        <source>This picture cannot be pinned</source>
        <translation>无法固定此图片</translation>
    </message>
    <message id="menu.endClickThrough">
        <source>Let Clicks Reach the Pins Again</source>
        <translation>取消固定图片的点击穿透</translation>
    </message>
    <message id="backdrop.frame.browserLight">
        <source>Browser window, light</source>
        <translation>浏览器窗口（浅色）</translation>
    </message>
    <message id="backdrop.frame.laptopLight">
        <source>Laptop, light</source>
        <translation>笔记本电脑（浅色）</translation>
    </message>
    <message id="backdrop.frame.phoneLight">
        <source>Phone, light</source>
        <translation>手机（浅色）</translation>
    </message>
    <message id="backdrop.frame.browserDark">
        <source>Browser window, dark</source>
        <translation>浏览器窗口（深色）</translation>
    </message>
    <message id="backdrop.frame.laptopDark">
        <source>Laptop, dark</source>
        <translation>笔记本电脑（深色）</translation>
    </message>
    <message id="backdrop.frame.phoneDark">
        <source>Phone, dark</source>
        <translation>手机（深色）</translation>
    </message>
    <message id="backdrop.title">
        <source>Backdrop</source>
        <translation>背景</translation>
    </message>
    <message id="backdrop.reset">
        <source>Back to the default backdrop</source>
        <translation>恢复默认背景</translation>
    </message>
    <message id="backdrop.enabled">
        <source>Show the backdrop</source>
        <translation>显示背景</translation>
    </message>
    <message id="backdrop.layout">
        <source>Layout</source>
        <translation>布局</translation>
    </message>
    <message id="backdrop.layout.margin">
        <source>Margin</source>
        <translation>边距</translation>
    </message>
    <message id="backdrop.layout.radius">
        <source>Corner radius</source>
        <translation>圆角</translation>
    </message>
    <message id="backdrop.layout.shadow">
        <source>Shadow</source>
        <translation>阴影</translation>
    </message>
    <message id="backdrop.aspect">
        <source>Aspect ratio</source>
        <translation>宽高比</translation>
    </message>
    <message id="backdrop.aspect.auto">
        <source>Auto</source>
        <translation>自动</translation>
    </message>
    <message id="backdrop.frame">
        <source>Frame</source>
        <translation>外框</translation>
    </message>
    <message id="backdrop.frame.none">
        <source>No frame</source>
        <translation>无外框</translation>
    </message>
    <message id="backdrop.placement">
        <source>Placement</source>
        <translation>摆放</translation>
    </message>
    <message id="backdrop.tiltX">
        <source>Tilt sideways</source>
        <translation>左右倾斜</translation>
    </message>
    <message id="backdrop.tiltY">
        <source>Tilt up and down</source>
        <translation>上下倾斜</translation>
    </message>
    <message id="backdrop.rotation">
        <source>Rotation</source>
        <translation>旋转</translation>
    </message>
    <message id="backdrop.contentScale">
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message id="backdrop.contentOffset">
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message id="backdrop.effects">
        <source>Effects</source>
        <translation>效果</translation>
    </message>
    <message id="backdrop.glow">
        <source>Glow</source>
        <translation>光晕</translation>
    </message>
    <message id="backdrop.glowCenter">
        <source>Center of the glow</source>
        <translation>光晕中心</translation>
    </message>
    <message id="backdrop.grain">
        <source>Grain</source>
        <translation>颗粒</translation>
    </message>
    <message id="backdrop.edgeBlur">
        <source>Edge blur</source>
        <translation>边缘模糊</translation>
    </message>
    <message id="backdrop.edgeBlur.none">
        <source>No edge blur</source>
        <translation>不模糊边缘</translation>
    </message>
    <message id="backdrop.edgeBlur.bottom">
        <source>Blur the bottom</source>
        <translation>模糊底部</translation>
    </message>
    <message id="backdrop.edgeBlur.left">
        <source>Blur the left</source>
        <translation>模糊左侧</translation>
    </message>
    <message id="backdrop.edgeBlur.right">
        <source>Blur the right</source>
        <translation>模糊右侧</translation>
    </message>
    <message id="backdrop.edgeBlur.all">
        <source>Blur all edges</source>
        <translation>模糊所有边缘</translation>
    </message>
    <message id="backdrop.curated.arc">
        <source>Arc</source>
        <translation>弧线</translation>
    </message>
    <message id="backdrop.curated.haze">
        <source>Haze</source>
        <translation>烟霭</translation>
    </message>
    <message id="backdrop.curated.lavender">
        <source>Lavender</source>
        <translation>薰衣草</translation>
    </message>
    <message id="backdrop.curated.ember">
        <source>Ember</source>
        <translation>余烬</translation>
    </message>
    <message id="backdrop.curated.moss">
        <source>Moss</source>
        <translation>苔藓</translation>
    </message>
    <message id="backdrop.curated.lagoon">
        <source>Lagoon</source>
        <translation>潟湖</translation>
    </message>
    <message id="backdrop.curated.sky">
        <source>Sky</source>
        <translation>天空</translation>
    </message>
    <message id="backdrop.gradient.dawn">
        <source>Dawn</source>
        <translation>黎明</translation>
    </message>
    <message id="backdrop.gradient.peach">
        <source>Peach</source>
        <translation>蜜桃</translation>
    </message>
    <message id="backdrop.gradient.coral">
        <source>Coral</source>
        <translation>珊瑚</translation>
    </message>
    <message id="backdrop.gradient.dusk">
        <source>Dusk</source>
        <translation>暮色</translation>
    </message>
    <message id="backdrop.gradient.iris">
        <source>Iris</source>
        <translation>鸢尾</translation>
    </message>
    <message id="backdrop.gradient.indigo">
        <source>Indigo</source>
        <translation>靛蓝</translation>
    </message>
    <message id="backdrop.gradient.ocean">
        <source>Ocean</source>
        <translation>海洋</translation>
    </message>
    <message id="backdrop.gradient.mist">
        <source>Mist</source>
        <translation>薄雾</translation>
    </message>
    <message id="backdrop.gradient.mint">
        <source>Mint</source>
        <translation>薄荷</translation>
    </message>
    <message id="backdrop.gradient.forest">
        <source>Forest</source>
        <translation>森林</translation>
    </message>
    <message id="backdrop.gradient.slate">
        <source>Slate</source>
        <translation>石板灰</translation>
    </message>
    <message id="backdrop.gradient.night">
        <source>Night</source>
        <translation>夜色</translation>
    </message>
    <message id="backdrop.color.white">
        <source>White</source>
        <translation>白色</translation>
    </message>
    <message id="backdrop.color.gray">
        <source>Gray</source>
        <translation>灰色</translation>
    </message>
    <message id="backdrop.color.black">
        <source>Black</source>
        <translation>黑色</translation>
    </message>
    <message id="backdrop.color.blue">
        <source>Blue</source>
        <translation>蓝色</translation>
    </message>
    <message id="backdrop.color.purple">
        <source>Purple</source>
        <translation>紫色</translation>
    </message>
    <message id="backdrop.color.pink">
        <source>Pink</source>
        <translation>粉色</translation>
    </message>
    <message id="backdrop.color.red">
        <source>Red</source>
        <translation>红色</translation>
    </message>
    <message id="backdrop.color.orange">
        <source>Orange</source>
        <translation>橙色</translation>
    </message>
    <message id="backdrop.color.green">
        <source>Green</source>
        <translation>绿色</translation>
    </message>
    <message id="backdrop.color.teal">
        <source>Teal</source>
        <translation>蓝绿色</translation>
    </message>
    <message id="backdrop.background">
        <source>Background</source>
        <translation>背景填充</translation>
    </message>
    <message id="backdrop.ownPicture">
        <source>A picture of your own…</source>
        <translation>自选图片…</translation>
    </message>
    <message id="backdrop.ownColor">
        <source>Another color…</source>
        <translation>其他颜色…</translation>
    </message>
    <message id="backdrop.ownPicture.title">
        <source>Choose a background picture</source>
        <translation>选择背景图片</translation>
    </message>
    <message id="backdrop.ownPicture.filter">
        <source>Pictures</source>
        <translation>图片</translation>
    </message>
    <message id="backdrop.gradient.stops">
        <source>Colors of the gradient</source>
        <translation>渐变颜色</translation>
    </message>
    <message id="backdrop.gradient.stopsHelp">
        <source>Drag a color to move it, away to remove it; click to add one</source>
        <translation>拖动颜色可移动，拖离可移除；单击可添加</translation>
    </message>
    <message id="backdrop.gradient.color">
        <source>Color of the stop</source>
        <translation>色标颜色</translation>
    </message>
    <message id="backdrop.gradient.add">
        <source>Add a color</source>
        <translation>添加颜色</translation>
    </message>
    <message id="backdrop.gradient.remove">
        <source>Remove the color</source>
        <translation>移除颜色</translation>
    </message>
    <message id="backdrop.gradient.reverse">
        <source>Turn the gradient round</source>
        <translation>反转渐变</translation>
    </message>
    <message id="backdrop.gradient.angle">
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message id="backdrop.styles">
        <source>Saved styles</source>
        <translation>已保存的样式</translation>
    </message>
    <message id="backdrop.styles.save">
        <source>Save this style…</source>
        <translation>保存此样式…</translation>
    </message>
    <message id="backdrop.styles.suggestion">
        <source>Style %1</source>
        <translation>样式 %1</translation>
    </message>
    <message id="backdrop.styles.help">
        <source>Click applies the style; a right click renames, renews or deletes it</source>
        <translation>单击应用样式；右击可重命名、更新或删除</translation>
    </message>
    <message id="backdrop.styles.rename">
        <source>Rename…</source>
        <translation>重命名…</translation>
    </message>
    <message id="backdrop.styles.renameAction">
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message id="backdrop.styles.update">
        <source>Replace with the current backdrop</source>
        <translation>替换为当前背景</translation>
    </message>
    <message id="backdrop.styles.delete">
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message id="backdrop.styles.name">
        <source>Name of the style</source>
        <translation>样式名称</translation>
    </message>
    <message id="backdrop.styles.accept">
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message id="canvas.hint.drawLine">
        <source>Drag to draw  ·  Shift keeps to steps of 45°</source>
        <translation>拖动以绘制  ·  Shift：按 45° 对齐</translation>
    </message>
    <message id="canvas.hint.drawShape">
        <source>Drag to draw  ·  Shift makes it even, Alt starts from the center</source>
        <translation>拖动以绘制  ·  Shift：等宽高  ·  Alt：从中心开始</translation>
    </message>
    <message id="canvas.hint.blur">
        <source>Drag over what should not be read</source>
        <translation>拖选要隐藏的内容</translation>
    </message>
    <message id="canvas.hint.magnifier">
        <source>Drag a lens over what should be larger</source>
        <translation>拖选要放大的部分</translation>
    </message>
    <message id="canvas.hint.pen">
        <source>Drag to draw freehand</source>
        <translation>拖动以自由绘制</translation>
    </message>
    <message id="canvas.hint.counter">
        <source>Click to place the next number, drag to point it</source>
        <translation>单击放置下一个序号，拖动可指定指向</translation>
    </message>
    <message id="canvas.hint.text">
        <source>Click to type, drag for a width</source>
        <translation>单击输入文字，拖动可指定宽度</translation>
    </message>
    <message id="canvas.hint.cropping">
        <source>Drag the edges to crop  ·  Return takes it  ·  Esc leaves</source>
        <translation>拖动边缘以裁剪  ·  Enter：确认  ·  Esc：退出</translation>
    </message>
    <message id="canvas.hint.select">
        <source>Click to select, drag to select several</source>
        <translation>单击选择，拖动可选择多个</translation>
    </message>
    <message id="canvas.hint.move">
        <source>Drag to move  ·  the arrow keys nudge</source>
        <translation>拖动以移动  ·  方向键：微调</translation>
    </message>
    <message id="canvas.hint.crop">
        <source>Drag to crop</source>
        <translation>拖动以裁剪</translation>
    </message>
    <message id="canvas.hint.resize">
        <source>Drag to resize  ·  Shift keeps it even, Alt keeps the center</source>
        <translation>拖动以调整大小  ·  Shift：保持比例  ·  Alt：保持中心</translation>
    </message>
    <message id="canvas.hint.movePoint">
        <source>Drag to move this point</source>
        <translation>拖动以移动此点</translation>
    </message>
    <message id="canvas.hint.turn">
        <source>Drag to turn</source>
        <translation>拖动以旋转</translation>
    </message>
    <message id="canvas.hint.editText">
        <source>Click to place the cursor, drag to select text</source>
        <translation>单击放置光标，拖动选择文字</translation>
    </message>
    <message id="canvas.description" numerus="yes">
        <source>Picture of %1 pixels with %n annotation(s)</source>
        <translation>
            <numerusform>%1 像素的图片，含 %n 个标注</numerusform>
        </translation>
    </message>
    <message id="canvas.description.selected" numerus="yes">
        <source>%n selected</source>
        <translation>
            <numerusform>已选择 %n 个</numerusform>
        </translation>
    </message>
    <message id="canvas.name">
        <source>Canvas</source>
        <translation>画布</translation>
    </message>
    <message id="canvas.hint.eyedropper">
        <source>Click to take the color  ·  Esc leaves</source>
        <translation>单击拾取颜色  ·  Esc：退出</translation>
    </message>
    <message id="canvas.hint.pan">
        <source>Drag to move the view</source>
        <translation>拖动以移动视图</translation>
    </message>
    <message id="color.red">
        <source>Red</source>
        <translation>红色</translation>
    </message>
    <message id="color.orange">
        <source>Orange</source>
        <translation>橙色</translation>
    </message>
    <message id="color.yellow">
        <source>Yellow</source>
        <translation>黄色</translation>
    </message>
    <message id="color.green">
        <source>Green</source>
        <translation>绿色</translation>
    </message>
    <message id="color.blue">
        <source>Blue</source>
        <translation>蓝色</translation>
    </message>
    <message id="color.violet">
        <source>Violet</source>
        <translation>紫色</translation>
    </message>
    <message id="color.pink">
        <source>Pink</source>
        <translation>粉色</translation>
    </message>
    <message id="color.slate">
        <source>Slate</source>
        <translation>石板灰</translation>
    </message>
    <message id="editor.color">
        <source>Color</source>
        <translation>颜色</translation>
    </message>
    <message id="editor.swatch.delete">
        <source>Delete Color</source>
        <translation>删除颜色</translation>
    </message>
    <message id="editor.swatch.add">
        <source>Add a color of your own</source>
        <translation>添加自定义颜色</translation>
    </message>
    <message id="editor.swatch.tooltip">
        <source>Your color %1 (double click to edit)</source>
        <translation>自定义颜色 %1（双击以编辑）</translation>
    </message>
    <message id="editor.swatch.edit">
        <source>Edit Color…</source>
        <translation>编辑颜色…</translation>
    </message>
    <message id="editor.failed.render">
        <source>The picture is too large to be made.</source>
        <translation>图片过大，无法生成。</translation>
    </message>
    <message id="editor.failed.encode">
        <source>The picture does not fit this format. PNG holds it.</source>
        <translation>图片超出此格式的限制。PNG 可以容纳。</translation>
    </message>
    <message id="editor.failed.write">
        <source>The file could not be written.</source>
        <translation>无法写入文件。</translation>
    </message>
    <message id="editor.progress.copy">
        <source>Copying…</source>
        <translation>正在复制…</translation>
    </message>
    <message id="editor.progress.save">
        <source>Saving…</source>
        <translation>正在保存…</translation>
    </message>
    <message id="editor.saveAs.title">
        <source>Save the picture as</source>
        <translation>图片另存为</translation>
    </message>
    <message id="editor.saved">
        <source>Saved %1</source>
        <translation>已保存 %1</translation>
    </message>
    <message id="editor.progress.print">
        <source>Printing…</source>
        <translation>正在打印…</translation>
    </message>
    <message id="editor.bar">
        <source>Tools and style</source>
        <translation>工具和样式</translation>
    </message>
    <message id="editor.moreTools">
        <source>More tools</source>
        <translation>更多工具</translation>
    </message>
    <message id="editor.dragOut">
        <source>Drag the picture into another program</source>
        <translation>将图片拖到其他程序中</translation>
    </message>
    <message id="editor.copy.outdated">
        <source>%1: the clipboard holds an older state</source>
        <translation>%1：剪贴板中不是最新内容</translation>
    </message>
    <message id="tool.select">
        <source>Select</source>
        <translation>选择</translation>
    </message>
    <message id="tool.arrow">
        <source>Arrow</source>
        <translation>箭头</translation>
    </message>
    <message id="tool.rectangle">
        <source>Rectangle</source>
        <translation>矩形</translation>
    </message>
    <message id="tool.ellipse">
        <source>Ellipse</source>
        <translation>椭圆</translation>
    </message>
    <message id="tool.line">
        <source>Line</source>
        <translation>直线</translation>
    </message>
    <message id="tool.pen">
        <source>Pen</source>
        <translation>画笔</translation>
    </message>
    <message id="tool.text">
        <source>Text</source>
        <translation>文字</translation>
    </message>
    <message id="tool.counter">
        <source>Counter</source>
        <translation>序号</translation>
    </message>
    <message id="tool.pixelate">
        <source>Pixelate</source>
        <translation>马赛克</translation>
    </message>
    <message id="tool.magnifier">
        <source>Magnifier</source>
        <translation>放大镜</translation>
    </message>
    <message id="editor.crop">
        <source>Crop</source>
        <translation>裁剪</translation>
    </message>
    <message id="editor.thinner">
        <source>Thinner</source>
        <translation>调细</translation>
    </message>
    <message id="editor.thicker">
        <source>Thicker</source>
        <translation>调粗</translation>
    </message>
    <message id="editor.sketch">
        <source>Hand-Drawn</source>
        <translation>手绘风格</translation>
    </message>
    <message id="editor.fill">
        <source>Fill</source>
        <translation>填充</translation>
    </message>
    <message id="editor.nextBlurStyle">
        <source>Next Way to Pixelate</source>
        <translation>切换遮盖方式</translation>
    </message>
    <message id="editor.pickColor">
        <source>Pick Color from Screen</source>
        <translation>从屏幕拾取颜色</translation>
    </message>
    <message id="editor.undo">
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message id="editor.redo">
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message id="editor.cut">
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message id="editor.copy">
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message id="editor.paste">
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message id="editor.duplicate">
        <source>Duplicate</source>
        <translation>创建副本</translation>
    </message>
    <message id="editor.delete">
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message id="editor.selectAll">
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message id="editor.bringForward">
        <source>Bring Forward</source>
        <translation>上移一层</translation>
    </message>
    <message id="editor.sendBackward">
        <source>Send Backward</source>
        <translation>下移一层</translation>
    </message>
    <message id="editor.bringToFront">
        <source>Bring to Front</source>
        <translation>置于顶层</translation>
    </message>
    <message id="editor.sendToBack">
        <source>Send to Back</source>
        <translation>置于底层</translation>
    </message>
    <message id="editor.alignLeft">
        <source>Align Left Edges</source>
        <translation>左对齐</translation>
    </message>
    <message id="editor.alignCenter">
        <source>Align Centers Horizontally</source>
        <translation>水平居中对齐</translation>
    </message>
    <message id="editor.alignRight">
        <source>Align Right Edges</source>
        <translation>右对齐</translation>
    </message>
    <message id="editor.alignTop">
        <source>Align Top Edges</source>
        <translation>顶部对齐</translation>
    </message>
    <message id="editor.alignMiddle">
        <source>Align Centers Vertically</source>
        <translation>垂直居中对齐</translation>
    </message>
    <message id="editor.alignBottom">
        <source>Align Bottom Edges</source>
        <translation>底部对齐</translation>
    </message>
    <message id="editor.distributeHorizontally">
        <source>Distribute Horizontally</source>
        <translation>水平均匀分布</translation>
    </message>
    <message id="editor.distributeVertically">
        <source>Distribute Vertically</source>
        <translation>垂直均匀分布</translation>
    </message>
    <message id="editor.resetCrop">
        <source>Reset Crop</source>
        <translation>重置裁剪</translation>
    </message>
    <message id="editor.addCapture">
        <source>Add Capture</source>
        <translation>添加截图</translation>
    </message>
    <message id="editor.addPicture">
        <source>Add Picture…</source>
        <translation>添加图片…</translation>
    </message>
    <message id="editor.backdrop">
        <source>Backdrop</source>
        <translation>背景</translation>
    </message>
    <message id="editor.copyPicture">
        <source>Copy Picture</source>
        <translation>复制图片</translation>
    </message>
    <message id="editor.save">
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message id="editor.saveAs">
        <source>Save As…</source>
        <translation>另存为…</translation>
    </message>
    <message id="editor.print">
        <source>Print…</source>
        <translation>打印…</translation>
    </message>
    <message id="editor.pin">
        <source>Pin to Screen</source>
        <translation>固定在屏幕上</translation>
    </message>
    <message id="editor.close">
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message id="editor.zoomIn">
        <source>Zoom In</source>
        <translation>放大</translation>
    </message>
    <message id="editor.zoomOut">
        <source>Zoom Out</source>
        <translation>缩小</translation>
    </message>
    <message id="editor.zoomToFit">
        <source>Fit to Window</source>
        <translation>适合窗口大小</translation>
    </message>
    <message id="editor.actualSize">
        <source>Actual Size</source>
        <translation>实际大小</translation>
    </message>
    <message id="editor.nextPart">
        <source>Next Part of the Window</source>
        <translation>窗口的下一个区域</translation>
    </message>
    <message id="editor.more">
        <source>More</source>
        <translation>更多</translation>
    </message>
    <message id="editor.shortcuts">
        <source>Keyboard Shortcuts</source>
        <translation>键盘快捷键</translation>
    </message>
    <message id="editor.group.tools">
        <source>Tools</source>
        <translation>工具</translation>
    </message>
    <message id="editor.group.style">
        <source>Style</source>
        <translation>样式</translation>
    </message>
    <message id="editor.group.edit">
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message id="editor.group.arrange">
        <source>Arrange</source>
        <translation>排列</translation>
    </message>
    <message id="editor.group.picture">
        <source>Picture</source>
        <translation>图片</translation>
    </message>
    <message id="editor.group.view">
        <source>View</source>
        <translation>视图</translation>
    </message>
    <message id="editor.menu.order">
        <source>Order</source>
        <translation>叠放顺序</translation>
    </message>
    <message id="editor.menu.align">
        <source>Align</source>
        <translation>对齐</translation>
    </message>
    <message id="editor.zoomPercent">
        <source>%1 %</source>
        <translation>%1%</translation>
    </message>
    <message id="editor.size">
        <source>%1 × %2 px</source>
        <translation>%1 × %2 px</translation>
    </message>
    <message id="editor.selectionSize">
        <source>%1 × %2 at %3, %4</source>
        <translation>%1 × %2（位置 %3, %4）</translation>
    </message>
    <message id="editor.sketchTooltip">
        <source>Hand-drawn</source>
        <translation>手绘风格</translation>
    </message>
    <message id="editor.fillTooltip">
        <source>Filled</source>
        <translation>填充</translation>
    </message>
    <message id="editor.textStyleTooltip">
        <source>Text on a filled box</source>
        <translation>文字加底色框</translation>
    </message>
    <message id="editor.textFontTooltip">
        <source>Handwriting</source>
        <translation>手写字体</translation>
    </message>
    <message id="editor.blurStyle.hides">
        <source>Hides what is below it for good.</source>
        <translation>彻底隐藏下方内容，无法还原。</translation>
    </message>
    <message id="editor.blurStyle.mosaic">
        <source>Mosaic</source>
        <translation>像素化</translation>
    </message>
    <message id="editor.blurStyle.erase">
        <source>Paint Over</source>
        <translation>纯色覆盖</translation>
    </message>
    <message id="editor.blurStyle.gaussian">
        <source>Blur</source>
        <translation>模糊</translation>
    </message>
    <message id="editor.blurStyle.gaussian.warning">
        <source>Decorates only: what is below can often be made readable again. Hide secrets with the other two.</source>
        <translation>仅作装饰：下方内容往往可以还原。如需隐藏机密，请使用另外两种方式。</translation>
    </message>
    <message id="editor.blurStyleTooltip">
        <source>How it is hidden</source>
        <translation>遮盖方式</translation>
    </message>
    <message id="editor.blurFillColor">
        <source>Color it is painted over with</source>
        <translation>覆盖颜色</translation>
    </message>
    <message id="editor.blurFillColor.automatic">
        <source>Take the color from around it</source>
        <translation>取用周围的颜色</translation>
    </message>
    <message id="editor.blurStrength.gaussian">
        <source>Softness</source>
        <translation>模糊程度</translation>
    </message>
    <message id="editor.blurStrength.pixel">
        <source>Cell size</source>
        <translation>方格大小</translation>
    </message>
    <message id="editor.magnifierShape.circle">
        <source>Round</source>
        <translation>圆形</translation>
    </message>
    <message id="editor.magnifierShape.roundedRect">
        <source>Rounded rectangle</source>
        <translation>圆角矩形</translation>
    </message>
    <message id="editor.magnifierShapeTooltip">
        <source>Shape of the lens</source>
        <translation>放大镜形状</translation>
    </message>
    <message id="editor.magnificationTooltip">
        <source>Magnification</source>
        <translation>放大倍数</translation>
    </message>
    <message id="editor.format.png">
        <source>PNG picture (*.png)</source>
        <translation>PNG 图片 (*.png)</translation>
    </message>
    <message id="editor.format.jpeg">
        <source>JPEG picture (*.jpg *.jpeg)</source>
        <translation>JPEG 图片 (*.jpg *.jpeg)</translation>
    </message>
    <message id="editor.format.webp">
        <source>WebP picture (*.webp)</source>
        <translation>WebP 图片 (*.webp)</translation>
    </message>
    <message id="editor.format.tiff">
        <source>TIFF picture (*.tiff *.tif)</source>
        <translation>TIFF 图片 (*.tiff *.tif)</translation>
    </message>
    <message id="editor.format.pdf">
        <source>PDF document (*.pdf)</source>
        <translation>PDF 文档 (*.pdf)</translation>
    </message>
    <message id="pin.zoom">
        <source>Zoom</source>
        <translation>缩放</translation>
    </message>
    <message id="pin.zoom.hint">
        <source>0 for the picture&apos;s own size</source>
        <translation>按 0 恢复原始大小</translation>
    </message>
    <message id="pin.copy">
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message id="pin.copy.hint">
        <source>Ctrl+C; drag it into another program</source>
        <translation>Ctrl+C；也可拖到其他程序中</translation>
    </message>
    <message id="pin.edit">
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message id="pin.more">
        <source>More</source>
        <translation>更多</translation>
    </message>
    <message id="pin.close">
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message id="pin.percent">
        <source>%1 %</source>
        <translation>%1%</translation>
    </message>
    <message id="pin.save">
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message id="pin.opacity">
        <source>Opacity</source>
        <translation>不透明度</translation>
    </message>
    <message id="pin.shadow">
        <source>Shadow</source>
        <translation>阴影</translation>
    </message>
    <message id="pin.roundedCorners">
        <source>Rounded Corners</source>
        <translation>圆角</translation>
    </message>
    <message id="pin.clickThrough">
        <source>Let Clicks Through</source>
        <translation>点击穿透</translation>
    </message>
    <message id="pin.closeAll">
        <source>Close All Pins</source>
        <translation>关闭所有固定的图片</translation>
    </message>
    <message id="pin.window">
        <source>Pinned picture</source>
        <translation>固定的图片</translation>
    </message>
    <message id="pin.opacity.badge">
        <source>Opacity %1</source>
        <translation>不透明度 %1</translation>
    </message>
    <message id="pin.clickThrough.began">
        <source>Clicks now go through the pin. The Vellora menu ends this.</source>
        <translation>点击现在会穿透固定的图片。可在 Vellora 菜单中取消。</translation>
    </message>
    <message id="editor.shortcuts.lock">
        <source>Keep the Tool</source>
        <translation>锁定工具</translation>
    </message>
    <message id="editor.shortcuts.doubleClick">
        <source>double click</source>
        <translation>双击</translation>
    </message>
    <message id="editor.shortcuts.colors">
        <source>Colors</source>
        <translation>颜色</translation>
    </message>
    <message id="editor.shortcuts.pan">
        <source>Move the Picture</source>
        <translation>移动图片</translation>
    </message>
    <message id="editor.shortcuts.space">
        <source>Space</source>
        <translation>空格</translation>
    </message>
    <message id="editor.shortcuts.drag">
        <source>drag</source>
        <translation>拖动</translation>
    </message>
    <message id="editor.cancel">
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message id="editor.zoom">
        <source>Zoom</source>
        <translation>缩放</translation>
    </message>
    <message id="editor.moreStyle">
        <source>More of the style</source>
        <translation>更多样式选项</translation>
    </message>
    <message id="editor.width">
        <source>Width</source>
        <translation>粗细</translation>
    </message>
    <message id="editor.width.preset">
        <source>Width %1</source>
        <translation>粗细 %1</translation>
    </message>
    <message id="color.plane">
        <source>Saturation and brightness</source>
        <translation>饱和度和亮度</translation>
    </message>
    <message id="color.hue">
        <source>Hue</source>
        <translation>色相</translation>
    </message>
    <message id="color.opacity">
        <source>Opacity</source>
        <translation>不透明度</translation>
    </message>
    <message id="color.hex">
        <source>Color as a hexadecimal number</source>
        <translation>十六进制颜色值</translation>
    </message>
    <message id="color.eyedropper">
        <source>Pick a color from the screen</source>
        <translation>从屏幕拾取颜色</translation>
    </message>
    <message id="editor.copiedSelection">
        <source>Copied the selection</source>
        <translation>已复制所选内容</translation>
    </message>
    <message id="compress.compare.value">
        <source>%1 % before</source>
        <translation>之前 %1 %</translation>
    </message>
    <message id="compress.compare.selectOne">
        <source>Select an image to compare it with its result</source>
        <translation>选择一张图片以与结果比较</translation>
    </message>
    <message id="compress.compare.before">
        <source>Before</source>
        <translation>之前</translation>
    </message>
    <message id="compress.compare.after">
        <source>After</source>
        <translation>之后</translation>
    </message>
    <message id="compress.compare.fit">
        <source>Show the whole picture</source>
        <translation>显示整张图片</translation>
    </message>
    <message id="compress.compare.actual">
        <source>Show at 100 %</source>
        <translation>以 100 % 显示</translation>
    </message>
    <message id="compress.compare.zoom">
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message id="compress.compare.busy">
        <source>The result is being made</source>
        <translation>正在生成结果</translation>
    </message>
    <message id="compress.compare.name">
        <source>Before and after</source>
        <translation>之前与之后</translation>
    </message>
    <message id="compress.compare.help">
        <source>The arrow keys move the divider. B shows only the picture before.</source>
        <translation>方向键移动分隔线。按 B 只显示之前的图片。</translation>
    </message>
    <message id="compress.drop.hint">
        <source>Drop images or folders here</source>
        <translation>将图片或文件夹拖放到此处</translation>
    </message>
    <message id="compress.drop.more">
        <source>or paste them with %1. Originals are never changed, and results are never larger.</source>
        <translation>或用 %1 粘贴。原文件不会被更改，结果也不会变大。</translation>
    </message>
    <message id="compress.drop.choose">
        <source>Choose Images…</source>
        <translation>选择图片…</translation>
    </message>
    <message id="compress.cancel">
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message id="compress.cancelTip">
        <source>Stop compressing (Esc)</source>
        <translation>停止压缩 (Esc)</translation>
    </message>
    <message id="compress.actionOne">
        <source>Compress 1 Image</source>
        <translation>压缩 1 张图片</translation>
    </message>
    <message id="compress.actionMany">
        <source>Compress %1 Images</source>
        <translation>压缩 %1 张图片</translation>
    </message>
    <message id="compress.actionNone">
        <source>Compress</source>
        <translation>压缩</translation>
    </message>
    <message id="compress.progress.count">
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message id="compress.toast.failed" numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n 张失败</numerusform>
        </translation>
    </message>
    <message id="compress.row.keptTip">
        <source>Nothing smaller was found in this format and size</source>
        <translation>在此格式和尺寸下无法更小</translation>
    </message>
    <message id="compress.row.resultTip">
        <source>Result: %1</source>
        <translation>结果:%1</translation>
    </message>
    <message id="compress.row.flattenedTip">
        <source>This format cannot be transparent: the background became white</source>
        <translation>此格式不支持透明，背景已变为白色</translation>
    </message>
    <message id="compress.command.retry">
        <source>Try Again</source>
        <translation>重试</translation>
    </message>
    <message id="compress.command.reveal">
        <source>Show Result in Folder</source>
        <translation>在文件夹中显示结果</translation>
    </message>
    <message id="compress.command.remove">
        <source>Remove from List</source>
        <translation>从列表中移除</translation>
    </message>
    <message id="compress.list">
        <source>Images</source>
        <translation>图片</translation>
    </message>
    <message id="compress.settingsTitle">
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message id="compress.label.format">
        <source>Format</source>
        <translation>格式</translation>
    </message>
    <message id="compress.format.original">
        <source>Original</source>
        <translation>原格式</translation>
    </message>
    <message id="compress.format.originalTip">
        <source>Every image keeps its format</source>
        <translation>每张图片保持原有格式</translation>
    </message>
    <message id="compress.format.jpegTip">
        <source>For photos; no transparency</source>
        <translation>适合照片;不支持透明</translation>
    </message>
    <message id="compress.format.pngTip">
        <source>Exact to the pixel; for screenshots and drawings</source>
        <translation>像素级精确;适合截图和图画</translation>
    </message>
    <message id="compress.format.webpTip">
        <source>Smallest, for the web; keeps transparency</source>
        <translation>体积最小，适合网页;保留透明</translation>
    </message>
    <message id="compress.label.quality">
        <source>Quality</source>
        <translation>质量</translation>
    </message>
    <message id="compress.quality.percent">
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message id="compress.quality.unused">
        <source>Nothing is lost in these formats, so quality changes nothing.</source>
        <translation>这些格式不会损失任何内容，质量设置不起作用。</translation>
    </message>
    <message id="compress.label.resize">
        <source>Resize</source>
        <translation>调整大小</translation>
    </message>
    <message id="compress.resize.fixed">
        <source>%1 – at most %2 px</source>
        <translation>%1 – 最大 %2 px</translation>
    </message>
    <message id="compress.resize.off">
        <source>Off</source>
        <translation>关闭</translation>
    </message>
    <message id="compress.resize.custom">
        <source>Custom</source>
        <translation>自定义</translation>
    </message>
    <message id="compress.resize.customTip">
        <source>Longest edge in pixels. Smaller images stay as they are.</source>
        <translation>最长边的像素数。较小的图片保持不变。</translation>
    </message>
    <message id="compress.resize.pixels">
        <source>pixels</source>
        <translation>像素</translation>
    </message>
    <message id="compress.label.output">
        <source>Save results</source>
        <translation>保存结果</translation>
    </message>
    <message id="compress.output.source">
        <source>Beside the originals</source>
        <translation>原文件旁</translation>
    </message>
    <message id="compress.output.custom">
        <source>In another folder</source>
        <translation>其他文件夹</translation>
    </message>
    <message id="compress.output.choose">
        <source>Choose…</source>
        <translation>选择…</translation>
    </message>
    <message id="compress.output.chooseTitle">
        <source>Choose a folder for the results</source>
        <translation>选择保存结果的文件夹</translation>
    </message>
    <message id="compress.keepMetadata">
        <source>Keep metadata</source>
        <translation>保留元数据</translation>
    </message>
    <message id="compress.keepMetadataHelp">
        <source>Camera, place, author. Off: nobody learns where a photo was taken.</source>
        <translation>相机、地点、作者。关闭后，没有人知道照片的拍摄地点。</translation>
    </message>
    <message id="compress.keepDates">
        <source>Keep dates</source>
        <translation>保留日期</translation>
    </message>
    <message id="compress.keepDatesHelp">
        <source>Results get the file dates of their originals.</source>
        <translation>结果使用原文件的日期。</translation>
    </message>
    <message id="compress.row.kept">
        <source>Kept as it was</source>
        <translation>保持原样</translation>
    </message>
    <message id="compress.row.metadataRemoved">
        <source>Only metadata removed</source>
        <translation>仅移除了元数据</translation>
    </message>
    <message id="compress.size.gigabytes">
        <source>%1 GB</source>
        <translation>%1 GB</translation>
    </message>
    <message id="compress.size.megabytes">
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message id="compress.size.kilobytes">
        <source>%1 kB</source>
        <translation>%1 kB</translation>
    </message>
    <message id="compress.size.bytes">
        <source>%1 B</source>
        <translation>%1 B</translation>
    </message>
    <message id="compress.row.smaller">
        <source>%1% smaller</source>
        <translation>减小 %1%</translation>
    </message>
    <message id="compress.row.larger">
        <source>%1% larger</source>
        <translation>增大 %1%</translation>
    </message>
    <message id="compress.row.pixels">
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message id="compress.progress.secondsLeft" numerus="yes">
        <source>%n second(s) left</source>
        <translation>
            <numerusform>剩余 %n 秒</numerusform>
        </translation>
    </message>
    <message id="compress.progress.minutesLeft" numerus="yes">
        <source>%n minute(s) left</source>
        <translation>
            <numerusform>剩余 %n 分钟</numerusform>
        </translation>
    </message>
    <message id="compress.failure.notFound">
        <source>The file is no longer there</source>
        <translation>文件已不存在</translation>
    </message>
    <message id="compress.failure.notPermitted">
        <source>You are not allowed to read or write here</source>
        <translation>您无权在此读取或写入</translation>
    </message>
    <message id="compress.failure.notAFile">
        <source>This is not a file</source>
        <translation>这不是文件</translation>
    </message>
    <message id="compress.failure.notAPicture">
        <source>This is not an image</source>
        <translation>这不是图片</translation>
    </message>
    <message id="compress.failure.tooLarge">
        <source>The image is too large</source>
        <translation>图片太大</translation>
    </message>
    <message id="compress.failure.unsupported">
        <source>This kind of image is not supported</source>
        <translation>不支持此类图片</translation>
    </message>
    <message id="compress.failure.animated">
        <source>Animations and pages can only keep their format and size</source>
        <translation>动画和多页图片只能保持格式和尺寸</translation>
    </message>
    <message id="compress.failure.damaged">
        <source>The file is damaged</source>
        <translation>文件已损坏</translation>
    </message>
    <message id="compress.failure.outOfMemory">
        <source>There is not enough memory</source>
        <translation>内存不足</translation>
    </message>
    <message id="compress.failure.cannotEncode">
        <source>The image does not fit this format</source>
        <translation>图片不适合此格式</translation>
    </message>
    <message id="compress.failure.diskFull">
        <source>The disk is full</source>
        <translation>磁盘已满</translation>
    </message>
    <message id="compress.failure.writeFailed">
        <source>The result could not be written</source>
        <translation>无法写入结果</translation>
    </message>
    <message id="compress.row.cancelled">
        <source>Stopped</source>
        <translation>已停止</translation>
    </message>
    <message id="compress.row.sizes">
        <source>%1 → %2</source>
        <translation>%1 → %2</translation>
    </message>
    <message id="compress.row.running">
        <source>Compressing…</source>
        <translation>正在压缩…</translation>
    </message>
    <message id="compress.row.same">
        <source>Same size</source>
        <translation>大小相同</translation>
    </message>
    <message id="compress.row.failed">
        <source>Failed</source>
        <translation>失败</translation>
    </message>
    <message id="compress.badge.fullSize">
        <source>Full size</source>
        <translation>原始尺寸</translation>
    </message>
    <message id="compress.badge.maxEdge">
        <source>At most %1 px</source>
        <translation>最大 %1 px</translation>
    </message>
    <message id="compress.badge.sourceFolder">
        <source>Source folder</source>
        <translation>源文件夹</translation>
    </message>
    <message id="compress.title">
        <source>Compress Images</source>
        <translation>压缩图片</translation>
    </message>
    <message id="compress.command.addImages">
        <source>Add Images…</source>
        <translation>添加图片…</translation>
    </message>
    <message id="compress.command.addFolder">
        <source>Add Folder…</source>
        <translation>添加文件夹…</translation>
    </message>
    <message id="compress.command.paste">
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message id="compress.command.compare">
        <source>Compare Before and After</source>
        <translation>比较前后</translation>
    </message>
    <message id="compress.command.clear">
        <source>Remove All</source>
        <translation>全部移除</translation>
    </message>
    <message id="compress.command.settings">
        <source>Show or Hide Settings</source>
        <translation>显示或隐藏设置</translation>
    </message>
    <message id="compress.add">
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message id="compress.addTip">
        <source>Add images, folders, or captures</source>
        <translation>添加图片、文件夹或截图</translation>
    </message>
    <message id="compress.key.space">
        <source>Space</source>
        <translation>空格</translation>
    </message>
    <message id="compress.toast.nothingToPaste">
        <source>There is no image on the clipboard</source>
        <translation>剪贴板中没有图片</translation>
    </message>
    <message id="compress.pastedName">
        <source>Pasted Image %1</source>
        <translation>粘贴的图片 %1</translation>
    </message>
    <message id="compress.toast.nothingFound">
        <source>No new images were found there</source>
        <translation>那里没有找到新图片</translation>
    </message>
    <message id="compress.looking">
        <source>Looking for images…</source>
        <translation>正在查找图片…</translation>
    </message>
    <message id="compress.summary.count" numerus="yes">
        <source>%n image(s)</source>
        <translation>
            <numerusform>%n 张图片</numerusform>
        </translation>
    </message>
    <message id="compress.addImages.title">
        <source>Add images</source>
        <translation>添加图片</translation>
    </message>
    <message id="compress.addImages.filter">
        <source>Images (%1)</source>
        <translation>图片 (%1)</translation>
    </message>
    <message id="compress.addImages.allFiles">
        <source>All files (*)</source>
        <translation>所有文件 (*)</translation>
    </message>
    <message id="compress.addFolder.title">
        <source>Add a folder of images</source>
        <translation>添加图片文件夹</translation>
    </message>
    <message id="compress.command.captures">
        <source>Recent Captures</source>
        <translation>最近的截图</translation>
    </message>
    <message id="compress.toast.done" numerus="yes">
        <source>%n image(s) compressed</source>
        <translation>
            <numerusform>已压缩 %n 张图片</numerusform>
        </translation>
    </message>
    <message id="compress.toast.savedPercent">
        <source>%1 saved (%2%)</source>
        <translation>节省 %1(%2%)</translation>
    </message>
    <message id="compress.toast.stopped" numerus="yes">
        <source>%n stopped</source>
        <translation>
            <numerusform>%n 张已停止</numerusform>
        </translation>
    </message>
    <message id="editor.compress">
        <source>Compress…</source>
        <translation>压缩…</translation>
    </message>
    <message id="recording.bar.level">
        <source>Level of the microphone</source>
        <translation>麦克风电平</translation>
    </message>
    <message id="recording.bar.device">
        <source>%1: %2</source>
        <translation>%1:%2</translation>
    </message>
    <message id="recording.bar.start">
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message id="recording.bar.startTip">
        <source>Start recording (Return)</source>
        <translation>开始录制 (Return)</translation>
    </message>
    <message id="recording.camera.close">
        <source>Turn the camera off</source>
        <translation>关闭摄像头</translation>
    </message>
    <message id="recording.camera">
        <source>Camera</source>
        <translation>摄像头</translation>
    </message>
    <message id="recording.camera.help">
        <source>Drag to move, turn the wheel to resize</source>
        <translation>拖动可移动，滚轮可调整大小</translation>
    </message>
    <message id="recording.bar.resume">
        <source>Resume</source>
        <translation>继续</translation>
    </message>
    <message id="recording.bar.pause">
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message id="recording.bar.sound.on">
        <source>Sound of the computer: on</source>
        <translation>电脑声音:开</translation>
    </message>
    <message id="recording.bar.sound.off">
        <source>Sound of the computer: off</source>
        <translation>电脑声音:关</translation>
    </message>
    <message id="recording.bar.keys.on">
        <source>Keystrokes are recorded</source>
        <translation>正在记录按键</translation>
    </message>
    <message id="recording.bar.keys.off">
        <source>Keystrokes are not recorded</source>
        <translation>不记录按键</translation>
    </message>
    <message id="recording.bar.startingIn">
        <source>Starting in %1</source>
        <translation>%1 秒后开始</translation>
    </message>
    <message id="recording.bar.starting">
        <source>Starting…</source>
        <translation>正在开始…</translation>
    </message>
    <message id="recording.bar">
        <source>Recording</source>
        <translation>录制</translation>
    </message>
    <message id="recording.bar.mic">
        <source>Microphone</source>
        <translation>麦克风</translation>
    </message>
    <message id="recording.bar.mic.none">
        <source>No microphone</source>
        <translation>无麦克风</translation>
    </message>
    <message id="recording.bar.camera">
        <source>Camera</source>
        <translation>摄像头</translation>
    </message>
    <message id="recording.bar.camera.none">
        <source>No camera</source>
        <translation>无摄像头</translation>
    </message>
    <message id="recording.bar.cancel">
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message id="recording.bar.elapsed">
        <source>Recorded time</source>
        <translation>已录制时间</translation>
    </message>
    <message id="recording.bar.stop">
        <source>Stop and keep the recording</source>
        <translation>停止并保留录制</translation>
    </message>
    <message id="recording.bar.close">
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message id="recording.bar.keys.hidden">
        <source>A password is being typed: keystrokes are not recorded</source>
        <translation>正在输入密码:不记录按键</translation>
    </message>
    <message id="recording.countdown" numerus="yes">
        <source>Recording starts in %n second(s)</source>
        <translation>
            <numerusform>%n 秒后开始录制</numerusform>
        </translation>
    </message>
    <message id="alert.ok">
        <source>OK</source>
        <translation>好</translation>
    </message>
    <message id="recording.error.writerSetupFailed">
        <source>Failed to set up the video writer.</source>
        <translation>无法准备视频写入。</translation>
    </message>
    <message id="recording.error.writeFailed">
        <source>Failed to write the recording.</source>
        <translation>无法写入录制内容。</translation>
    </message>
    <message id="recording.error.displayNotFound">
        <source>Could not find the display to record.</source>
        <translation>找不到要录制的显示器。</translation>
    </message>
    <message id="recording.error.windowNotFound">
        <source>Could not find the window to record.</source>
        <translation>找不到要录制的窗口。</translation>
    </message>
    <message id="recording.error.micNotFound">
        <source>Could not find the selected microphone.</source>
        <translation>找不到所选的麦克风。</translation>
    </message>
    <message id="recording.error.cameraNotFound">
        <source>Could not find the selected camera.</source>
        <translation>找不到所选的摄像头。</translation>
    </message>
    <message id="toast.recordingFailed">
        <source>The recording could not be kept</source>
        <translation>无法保留录制内容</translation>
    </message>
    <message id="record.keyboard.saveFailed">
        <source>The recording is complete, but its keystrokes could not be saved</source>
        <translation>录制内容完整，但无法保存按键</translation>
    </message>
    <message id="recording.mic.unavailable">
        <source>The microphone cannot be used: recording without it</source>
        <translation>麦克风无法使用:将在没有麦克风的情况下录制</translation>
    </message>
    <message id="recording.mic.lost">
        <source>The microphone is gone: the recording goes on without sound from it</source>
        <translation>麦克风已断开:录制将在没有其声音的情况下继续</translation>
    </message>
    <message id="recording.camera.lost">
        <source>The camera is gone: the recording goes on without it</source>
        <translation>摄像头已断开:录制将在没有它的情况下继续</translation>
    </message>
    <message id="recording.disk.low">
        <source>The disk has room for about five more minutes of recording</source>
        <translation>磁盘空间还可录制约五分钟</translation>
    </message>
    <message id="recording.disk.full">
        <source>The recording was stopped because the disk is nearly full. Everything so far is kept.</source>
        <translation>磁盘快满了，录制已停止。此前的内容均已保留。</translation>
    </message>
    <message id="recording.stopped">
        <source>What was being recorded is gone. The recording up to then is kept.</source>
        <translation>录制的对象已消失。此前的录制内容已保留。</translation>
    </message>
    <message id="record.keyboard.permission.title">
        <source>Keystrokes cannot be recorded</source>
        <translation>无法记录按键</translation>
    </message>
    <message id="record.keyboard.permission.body">
        <source>This desktop does not let programs see which keys are pressed. The rest is recorded as usual.</source>
        <translation>此桌面不允许程序查看按下的按键。其余内容照常录制。</translation>
    </message>
    <message id="alert.importVideo.unreadable.title">
        <source>This file cannot be read as a video</source>
        <translation>无法将此文件作为视频读取</translation>
    </message>
    <message id="recording.startFailed">
        <source>The recording could not be started</source>
        <translation>无法开始录制</translation>
    </message>
    <message id="recording.region.fullDisplay">
        <source>Full display</source>
        <translation>整个屏幕</translation>
    </message>
    <message id="recording.region.square">
        <source>Square</source>
        <translation>正方形</translation>
    </message>
    <message id="recording.region.presets">
        <source>Sizes and shapes</source>
        <translation>尺寸和形状</translation>
    </message>
    <message id="recording.region.badge">
        <source>Size of the recording; drag to move it</source>
        <translation>录制尺寸;拖动可移动</translation>
    </message>
    <message id="recording.region.sizes">
        <source>%1 px · %2 pt</source>
        <translation>%1 px · %2 pt</translation>
    </message>
    <message id="toast.recordingsRecovered" numerus="yes">
        <source>%n interrupted recording(s) saved: look under Recent Recordings</source>
        <translation>
            <numerusform>%n 个中断的录屏已保存，可在“最近的录屏”中找到</numerusform>
        </translation>
    </message>
    <message id="toast.recordingNotOpened">
        <source>This recording cannot be opened: it has no movie</source>
        <translation>无法打开此录屏：其中没有视频</translation>
    </message>
    <message id="record.source.region">
        <source>Region</source>
        <translation>区域</translation>
    </message>
    <message id="record.source.window">
        <source>Window</source>
        <translation>窗口</translation>
    </message>
    <message id="record.source.fullscreen">
        <source>Full screen</source>
        <translation>全屏</translation>
    </message>
    <message id="import.video.title">
        <source>Import a video</source>
        <translation>导入视频</translation>
    </message>
    <message id="import.video.filter">
        <source>Videos (%1)</source>
        <translation>视频 (%1)</translation>
    </message>
    <message id="import.video.all">
        <source>All files (*)</source>
        <translation>所有文件 (*)</translation>
    </message>
    <message id="toast.importingVideo">
        <source>Importing the video…</source>
        <translation>正在导入视频…</translation>
    </message>
    <message id="toast.importNotCopied">
        <source>The video could not be copied into the recordings folder</source>
        <translation>无法将视频复制到录屏文件夹</translation>
    </message>
    <message id="player.picture">
        <source>Picture</source>
        <translation>画面</translation>
    </message>
    <message id="player.play">
        <source>Play</source>
        <translation>播放</translation>
    </message>
    <message id="player.sound">
        <source>Sound</source>
        <translation>声音</translation>
    </message>
    <message id="player.reveal">
        <source>Show in Folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message id="player.notPlayable">
        <source>The movie of this recording cannot be played. Its folder may still hold what was recorded.</source>
        <translation>无法播放此录制的影片。录制的内容可能仍在其文件夹中。</translation>
    </message>
    <message id="player.pause">
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message id="player.position">
        <source>Position</source>
        <translation>播放位置</translation>
    </message>
    <message id="recording.systemSound.unavailable">
        <source>This computer&apos;s sound cannot be recorded: the recording goes on without it</source>
        <translation>无法录制此电脑的声音:录制将在没有它的情况下继续</translation>
    </message>
    <message id="recording.camera.unavailable">
        <source>The camera cannot be used: recording without it</source>
        <translation>无法使用摄像头:录制时不使用它</translation>
    </message>
    <message id="recording.mic.returned">
        <source>The microphone is back and recorded again</source>
        <translation>麦克风已恢复，继续录制</translation>
    </message>
    <message id="recording.systemSound.returned">
        <source>This computer&apos;s sound is recorded again</source>
        <translation>已恢复录制这台电脑的声音</translation>
    </message>
</context>
</TS>
