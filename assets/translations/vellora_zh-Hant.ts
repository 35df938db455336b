<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_Hant" sourcelanguage="en">
<context>
    <name></name>
    <message id="toast.noTray">
        <source>Vellora is running. This desktop has no tray: start Vellora again to see its commands.</source>
        <translation>Vellora 正在執行。此桌面沒有系統匣：再次啟動 Vellora 即可查看其指令。</translation>
    </message>
    <message id="toast.reopenFailed">
        <source>This capture can no longer be read</source>
        <translation>這個擷取畫面已無法讀取</translation>
    </message>
    <message id="alert.clearHistory.title">
        <source>Clear the capture history?</source>
        <translation>要清除擷取記錄嗎？</translation>
    </message>
    <message id="alert.clearHistory.body">
        <source>The recent captures will be deleted. Saved files stay where they are.</source>
        <translation>最近的擷取畫面會被刪除。已儲存的檔案會留在原處。</translation>
    </message>
    <message id="alert.clearHistory.confirm">
        <source>Clear History</source>
        <translation>清除記錄</translation>
    </message>
    <message id="alert.cancel">
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message id="load.file.title">
        <source>Open a picture</source>
        <translation>開啟圖片</translation>
    </message>
    <message id="load.file.filter">
        <source>Pictures (%1)</source>
        <translation>圖片 (%1)</translation>
    </message>
    <message id="alert.cleanupRecordings.title" numerus="yes">
        <source>Move %n recording(s) to the Trash?</source>
        <translation>
            <numerusform>要將 %n 個錄影移到垃圾桶嗎？</numerusform>
        </translation>
    </message>
    <message id="alert.cleanupRecordings.body">
        <source>They take up %1.</source>
        <translation>占用空間：%1。</translation>
    </message>
    <message id="alert.cleanupRecordings.openNote">
        <source>Recordings that are open stay.</source>
        <translation>已開啟的錄影會保留。</translation>
    </message>
    <message id="alert.cleanupRecordings.confirm">
        <source>Move to Trash</source>
        <translation>移到垃圾桶</translation>
    </message>
    <message id="toast.recordingsTrashed">
        <source>Recordings moved to the Trash</source>
        <translation>錄影已移到垃圾桶</translation>
    </message>
    <message id="alert.screenRecording.title">
        <source>Vellora is not allowed to see the screen</source>
        <translation>Vellora 沒有檢視螢幕的權限</translation>
    </message>
    <message id="alert.screenRecording.body">
        <source>Allow Vellora to record the screen in the desktop&apos;s privacy settings, then try again.</source>
        <translation>請在桌面的隱私權設定中允許 Vellora 錄製螢幕，然後再試一次。</translation>
    </message>
    <message id="alert.accessibility.title">
        <source>Vellora is not allowed to follow the pointer</source>
        <translation>Vellora 沒有追蹤指標的權限</translation>
    </message>
    <message id="alert.accessibility.body">
        <source>Allow Vellora to use accessibility in the desktop&apos;s privacy settings, then try again.</source>
        <translation>請在桌面的隱私權設定中允許 Vellora 使用輔助功能，然後再試一次。</translation>
    </message>
    <message id="alert.screenRecording.open">
        <source>Open Settings</source>
        <translation>開啟設定</translation>
    </message>
    <message id="load.error.noPicture">
        <source>No picture could be read from the clipboard</source>
        <translation>無法從剪貼簿讀取圖片</translation>
    </message>
    <message id="settings.about.title">
        <source>About</source>
        <translation>關於</translation>
    </message>
    <message id="settings.about.summary">
        <source>Screenshots, recordings and live streams</source>
        <translation>螢幕擷取、錄影與直播</translation>
    </message>
    <message id="settings.about.version">
        <source>Version %1</source>
        <translation>版本 %1</translation>
    </message>
    <message id="settings.about.licence">
        <source>Licence</source>
        <translation>授權條款</translation>
    </message>
    <message id="settings.about.website">
        <source>Website</source>
        <translation>網站</translation>
    </message>
    <message id="settings.about.issues">
        <source>Report a problem</source>
        <translation>回報問題</translation>
    </message>
    <message id="settings.about.licences">
        <source>Licences of fonts, icons and libraries</source>
        <translation>字型、圖示與函式庫的授權條款</translation>
    </message>
    <message id="settings.general.title">
        <source>General</source>
        <translation>一般</translation>
    </message>
    <message id="settings.general.afterCapture">
        <source>After a capture</source>
        <translation>擷取後</translation>
    </message>
    <message id="settings.clipboard.title">
        <source>Clipboard</source>
        <translation>剪貼簿</translation>
    </message>
    <message id="settings.clipboard.copyAs">
        <source>Copy captures as</source>
        <translation>擷取畫面複製為</translation>
    </message>
    <message id="settings.clipboard.info">
        <source>Some programs paste files, others paste pictures. With both, each takes the one it understands.</source>
        <translation>有些程式會貼上檔案，有些會貼上圖片。兩者都複製時，各程式會取用自己支援的形式。</translation>
    </message>
    <message id="settings.general.saving">
        <source>Saving</source>
        <translation>儲存</translation>
    </message>
    <message id="settings.general.saveFolder">
        <source>Folder for captures</source>
        <translation>擷取畫面的資料夾</translation>
    </message>
    <message id="settings.general.choose">
        <source>Choose…</source>
        <translation>選擇…</translation>
    </message>
    <message id="settings.general.resetDesktop">
        <source>Use Desktop Folder</source>
        <translation>使用桌面</translation>
    </message>
    <message id="settings.general.resetDesktopHelp">
        <source>Save captures to the Desktop folder again</source>
        <translation>恢復將擷取畫面儲存到桌面資料夾</translation>
    </message>
    <message id="settings.general.language">
        <source>Language</source>
        <translation>語言</translation>
    </message>
    <message id="settings.general.interfaceLanguage">
        <source>Language of the interface</source>
        <translation>介面語言</translation>
    </message>
    <message id="settings.general.systemLanguage">
        <source>System language</source>
        <translation>跟隨系統</translation>
    </message>
    <message id="settings.general.keepOneAction">
        <source>At least one action has to stay on.</source>
        <translation>至少要保持一項動作為開啟。</translation>
    </message>
    <message id="settings.general.chooseTitle">
        <source>Choose a folder for captures</source>
        <translation>選擇擷取畫面的資料夾</translation>
    </message>
    <message id="settings.general.showEditor">
        <source>Open in the editor</source>
        <translation>在編輯器中開啟</translation>
    </message>
    <message id="settings.general.copy">
        <source>Copy to the clipboard</source>
        <translation>複製到剪貼簿</translation>
    </message>
    <message id="settings.general.save">
        <source>Save as a file</source>
        <translation>儲存為檔案</translation>
    </message>
    <message id="settings.general.pin">
        <source>Pin to the screen</source>
        <translation>釘選在螢幕上</translation>
    </message>
    <message id="settings.general.showEditorHelp">
        <source>In the editor, ready to be annotated.</source>
        <translation>在編輯器中開啟，可立即加上註解。</translation>
    </message>
    <message id="settings.general.copyHelp">
        <source>Ready to be pasted into another program.</source>
        <translation>可直接貼到其他程式中。</translation>
    </message>
    <message id="settings.general.saveHelp">
        <source>As a PNG picture in the folder below.</source>
        <translation>以 PNG 圖片格式儲存到下方的資料夾。</translation>
    </message>
    <message id="settings.general.pinHelp">
        <source>It stays above all windows. Takes the place of the editor.</source>
        <translation>始終顯示在所有視窗上方，且不會開啟編輯器。</translation>
    </message>
    <message id="settings.clipboard.fileAndImage">
        <source>File and picture</source>
        <translation>檔案和圖片</translation>
    </message>
    <message id="settings.clipboard.fileOnly">
        <source>File only</source>
        <translation>僅檔案</translation>
    </message>
    <message id="settings.clipboard.imageOnly">
        <source>Picture only</source>
        <translation>僅圖片</translation>
    </message>
    <message id="settings.shortcuts.title">
        <source>Shortcuts</source>
        <translation>快捷鍵</translation>
    </message>
    <message id="settings.title">
        <source>Vellora Settings</source>
        <translation>Vellora 設定</translation>
    </message>
    <message id="settings.pages">
        <source>Settings pages</source>
        <translation>設定頁面</translation>
    </message>
    <message id="shortcut.recording">
        <source>Press the keys…</source>
        <translation>請按下按鍵…</translation>
    </message>
    <message id="shortcut.recordingHelp">
        <source>Press the new combination. Esc stops, Delete goes back to the default.</source>
        <translation>請按下新的組合鍵。Esc 取消，Delete 恢復預設值。</translation>
    </message>
    <message id="shortcut.none">
        <source>None</source>
        <translation>無</translation>
    </message>
    <message id="shortcut.startHelp">
        <source>Click to record another combination</source>
        <translation>按一下以設定其他組合鍵</translation>
    </message>
    <message id="settings.shortcuts.conflict">
        <source>%1 already belongs to “%2”.</source>
        <translation>%1 已指定給「%2」。</translation>
    </message>
    <message id="settings.shortcuts.group">
        <source>Global shortcuts</source>
        <translation>全域快捷鍵</translation>
    </message>
    <message id="settings.shortcuts.info">
        <source>They work in every program. Click a shortcut and press the new combination: with Ctrl, Alt or Super, or a function key alone.</source>
        <oldsource>They work in every program. Click a shortcut, then press the new combination: with Ctrl, Alt or Super, or a
</oldsource>
        <translation>在所有程式中都有效。按一下某個快捷鍵，再按下新的組合鍵：須包含 Ctrl、Alt 或 Super，或單獨使用一個功能鍵。</translation>
    </message>
    <message id="shortcut.reset">
        <source>Back to the default</source>
        <translation>恢復預設值</translation>
    </message>
    <message id="settings.shortcuts.heldElsewhere">
        <source>Another program holds %1. Choose another combination, or free it there.</source>
        <translation>%1 已被其他程式使用。請選擇其他組合鍵，或在該程式中取消使用。</translation>
    </message>
    <message id="settings.shortcuts.fnHint">
        <source>If the F-keys of this keyboard do something else, hold Fn as well.</source>
        <translation>如果此鍵盤的 F 鍵另有功能，請同時按住 Fn 鍵。</translation>
    </message>
    <message id="menu.captureArea">
        <source>Capture Area</source>
        <translation>擷取區域</translation>
    </message>
    <message id="menu.captureWindow">
        <source>Capture Window</source>
        <translation>擷取視窗</translation>
    </message>
    <message id="menu.captureFullscreen">
        <source>Capture Full Screen</source>
        <translation>擷取全螢幕</translation>
    </message>
    <message id="menu.captureScrolling">
        <source>Capture Scrolling Page</source>
        <translation>擷取捲動頁面</translation>
    </message>
    <message id="menu.captureText">
        <source>Capture Text</source>
        <translation>擷取文字</translation>
    </message>
    <message id="menu.moreCaptures">
        <source>More Captures</source>
        <translation>更多擷取方式</translation>
    </message>
    <message id="menu.captureElement">
        <source>Capture Element</source>
        <translation>擷取介面元素</translation>
    </message>
    <message id="menu.captureAreaSized">
        <source>Capture Fixed Size…</source>
        <translation>擷取固定大小…</translation>
    </message>
    <message id="menu.captureFullscreenDelayed">
        <source>Capture Full Screen in 3 Seconds</source>
        <translation>3 秒後擷取全螢幕</translation>
    </message>
    <message id="menu.loadFromClipboard">
        <source>Load from Clipboard</source>
        <translation>從剪貼簿載入</translation>
    </message>
    <message id="menu.loadFromFile">
        <source>Load from File…</source>
        <translation>從檔案載入…</translation>
    </message>
    <message id="menu.reopen">
        <source>Reopen Last Capture</source>
        <translation>重新開啟上次的擷取畫面</translation>
    </message>
    <message id="menu.reopenMore">
        <source>Recent Captures</source>
        <translation>最近的擷取畫面</translation>
    </message>
    <message id="menu.clearHistory">
        <source>Clear History…</source>
        <translation>清除記錄…</translation>
    </message>
    <message id="menu.compressImages">
        <source>Compress Images…</source>
        <translation>壓縮圖片…</translation>
    </message>
    <message id="menu.recordRegion">
        <source>Record Area</source>
        <translation>錄製區域</translation>
    </message>
    <message id="menu.stopRecording">
        <source>Stop Recording</source>
        <translation>停止錄製</translation>
    </message>
    <message id="menu.pauseRecording">
        <source>Pause Recording</source>
        <translation>暫停錄製</translation>
    </message>
    <message id="menu.resumeRecording">
        <source>Resume Recording</source>
        <translation>繼續錄製</translation>
    </message>
    <message id="menu.recordWindow">
        <source>Record Window</source>
        <translation>錄製視窗</translation>
    </message>
    <message id="menu.recordFullscreen">
        <source>Record Full Screen</source>
        <translation>錄製全螢幕</translation>
    </message>
    <message id="menu.recentRecordings">
        <source>Recent Recordings</source>
        <translation>最近的錄影</translation>
    </message>
    <message id="menu.openRecordingsFolder">
        <source>Open Recordings Folder</source>
        <translation>開啟錄影資料夾</translation>
    </message>
    <message id="menu.cleanupRecordings">
        <source>Clean Up Recordings…</source>
        <translation>清理錄影…</translation>
    </message>
    <message id="menu.importVideo">
        <source>Import Video…</source>
        <translation>匯入影片…</translation>
    </message>
    <message id="menu.startLive">
        <source>Go Live…</source>
        <translation>開始直播…</translation>
    </message>
    <message id="menu.stopLive">
        <source>Stop Live</source>
        <translation>結束直播</translation>
    </message>
    <message id="menu.settings">
        <source>Settings…</source>
        <translation>設定…</translation>
    </message>
    <message id="menu.quit">
        <source>Quit Vellora</source>
        <translation>結束 Vellora</translation>
    </message>
    <message id="toast.copiedAndSavedTo">
        <source>Copied and saved to %1</source>
        <translation>已複製並儲存到 %1</translation>
    </message>
    <message id="toast.copied">
        <source>Copied</source>
        <translation>已複製</translation>
    </message>
    <message id="toast.savedTo">
        <source>Saved to %1</source>
        <translation>已儲存到 %1</translation>
    </message>
    <message id="toast.captureOutputFailed">
        <source>Copying or saving failed; the capture is kept in the history</source>
        <translation>複製或儲存失敗；擷取畫面已保留在記錄中</translation>
    </message>
    <message id="toast.saveFailed">
        <source>Saving to %1 failed; the capture is kept in the history</source>
        <translation>無法儲存到 %1；擷取畫面已保留在記錄中</translation>
    </message>
    <message id="countdown.help">
        <source>Capture in a moment. Click or press Escape to cancel.</source>
        <translation>即將擷取。按一下滑鼠或按 Esc 取消。</translation>
    </message>
    <message id="countdown.name">
        <source>Countdown</source>
        <translation>倒數</translation>
    </message>
    <message id="overlay.badge.scaledSize">
        <source>%1 px  ·  %2 × %3 pt</source>
        <translation>%1 px  ·  %2 × %3 pt</translation>
    </message>
    <message id="overlay.hint.area">
        <source>Drag an area or click a window  ·  Space from the keyboard  ·  Esc cancels</source>
        <translation>拖曳出區域或按一下視窗  ·  空白鍵：用鍵盤選取  ·  Esc：取消</translation>
    </message>
    <message id="overlay.hint.text">
        <source>Drag over the text to read  ·  Esc cancels</source>
        <translation>拖曳選取要辨識的文字  ·  Esc：取消</translation>
    </message>
    <message id="overlay.hint.scrolling">
        <source>Drag over the part that scrolls  ·  Esc cancels</source>
        <translation>拖曳選取會捲動的部分  ·  Esc：取消</translation>
    </message>
    <message id="overlay.hint.recording">
        <source>Drag the area to record or click a window  ·  Esc cancels</source>
        <translation>拖曳出要錄製的區域或按一下視窗  ·  Esc：取消</translation>
    </message>
    <message id="overlay.hint.adjust">
        <source>Drag the handles or use the arrow keys  ·  Return takes it  ·  Esc starts over</source>
        <translation>拖曳控制點或使用方向鍵調整  ·  Enter：確定  ·  Esc：重新選取</translation>
    </message>
    <message id="overlay.hint.window">
        <source>Click a window  ·  Tab goes through them  ·  Esc cancels</source>
        <translation>按一下視窗  ·  Tab：下一個視窗  ·  Esc：取消</translation>
    </message>
    <message id="history.yesterday">
        <source>Yesterday</source>
        <translation>昨天</translation>
    </message>
    <message id="load.error.notFound">
        <source>The file does not exist</source>
        <translation>檔案不存在</translation>
    </message>
    <message id="load.error.notPermitted">
        <source>You may not read this file</source>
        <translation>您沒有讀取此檔案的權限</translation>
    </message>
    <message id="load.error.notAFile">
        <source>This is not a file</source>
        <translation>這不是檔案</translation>
    </message>
    <message id="load.error.tooLarge">
        <source>The picture is too large</source>
        <translation>圖片太大</translation>
    </message>
    <message id="load.error.notAnImage">
        <source>This is not a picture Vellora can read</source>
        <translation>這不是 Vellora 可以讀取的圖片</translation>
    </message>
    <message id="load.error.unsupported">
        <source>This kind of picture cannot be read</source>
        <translation>無法讀取這種圖片</translation>
    </message>
    <message id="load.error.outOfMemory">
        <source>There is not enough memory for the picture</source>
        <translation>記憶體不足，無法載入圖片</translation>
    </message>
    <message id="load.error.damaged">
        <source>The picture is damaged</source>
        <translation>圖片已損毀</translation>
    </message>
    <message id="capture.error.windowGone">
        <source>The window is gone</source>
        <translation>該視窗已不存在</translation>
    </message>
    <message id="capture.error.cropFailed">
        <source>Nothing of that area is on the screen any more</source>
        <translation>該區域已不在螢幕上</translation>
    </message>
    <message id="capture.error.noDisplay">
        <source>The screen is not there any more</source>
        <translation>該螢幕已無法使用</translation>
    </message>
    <message id="capture.error.failed">
        <source>The screen cannot be captured</source>
        <translation>無法擷取螢幕</translation>
    </message>
    <message id="toast.waylandSession">
        <source>This is a Wayland session: for now Vellora sees only programs that use X11</source>
        <translation>這是 Wayland 工作階段：目前 Vellora 只能看到使用 X11 的程式</translation>
    </message>
    <message id="toast.recovered" numerus="yes">
        <source>%n capture(s) that were open when Vellora ended are in the history</source>
        <translation>
            <numerusform>Vellora 結束時仍開啟的 %n 個擷取畫面已保留在記錄中</numerusform>
        </translation>
    </message>
    <message id="toast.pinFailed">
        <source>This picture cannot be pinned</source>
        <translation>無法釘選此圖片</translation>
    </message>
    <message id="menu.endClickThrough">
        <source>Let Clicks Reach the Pins Again</source>
        <translation>取消釘選圖片的點擊穿透</translation>
    </message>
    <message id="backdrop.frame.browserLight">
        <source>Browser window, light</source>
        <translation>瀏覽器視窗（淺色）</translation>
    </message>
    <message id="backdrop.frame.laptopLight">
        <source>Laptop, light</source>
        <translation>筆記型電腦（淺色）</translation>
    </message>
    <message id="backdrop.frame.phoneLight">
        <source>Phone, light</source>
        <translation>手機（淺色）</translation>
    </message>
    <message id="backdrop.frame.browserDark">
        <source>Browser window, dark</source>
        <translation>瀏覽器視窗（深色）</translation>
    </message>
    <message id="backdrop.frame.laptopDark">
        <source>Laptop, dark</source>
        <translation>筆記型電腦（深色）</translation>
    </message>
    <message id="backdrop.frame.phoneDark">
        <source>Phone, dark</source>
        <translation>手機（深色）</translation>
    </message>
    <message id="backdrop.title">
        <source>Backdrop</source>
        <translation>背景</translation>
    </message>
    <message id="backdrop.reset">
        <source>Back to the default backdrop</source>
        <translation>恢復預設背景</translation>
    </message>
    <message id="backdrop.enabled">
        <source>Show the backdrop</source>
        <translation>顯示背景</translation>
    </message>
    <message id="backdrop.layout">
        <source>Layout</source>
        <translation>版面配置</translation>
    </message>
    <message id="backdrop.layout.margin">
        <source>Margin</source>
        <translation>邊距</translation>
    </message>
    <message id="backdrop.layout.radius">
        <source>Corner radius</source>
        <translation>圓角</translation>
    </message>
    <message id="backdrop.layout.shadow">
        <source>Shadow</source>
        <translation>陰影</translation>
    </message>
    <message id="backdrop.aspect">
        <source>Aspect ratio</source>
        <translation>長寬比</translation>
    </message>
    <message id="backdrop.aspect.auto">
        <source>Auto</source>
        <translation>自動</translation>
    </message>
    <message id="backdrop.frame">
        <source>Frame</source>
        <translation>外框</translation>
    </message>
    <message id="backdrop.frame.none">
        <source>No frame</source>
        <translation>無外框</translation>
    </message>
    <message id="backdrop.placement">
        <source>Placement</source>
        <translation>擺放</translation>
    </message>
    <message id="backdrop.tiltX">
        <source>Tilt sideways</source>
        <translation>左右傾斜</translation>
    </message>
    <message id="backdrop.tiltY">
        <source>Tilt up and down</source>
        <translation>上下傾斜</translation>
    </message>
    <message id="backdrop.rotation">
        <source>Rotation</source>
        <translation>旋轉</translation>
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
        <translation>光暈</translation>
    </message>
    <message id="backdrop.glowCenter">
        <source>Center of the glow</source>
        <translation>光暈中心</translation>
    </message>
    <message id="backdrop.grain">
        <source>Grain</source>
        <translation>顆粒</translation>
    </message>
    <message id="backdrop.edgeBlur">
        <source>Edge blur</source>
        <translation>邊緣模糊</translation>
    </message>
    <message id="backdrop.edgeBlur.none">
        <source>No edge blur</source>
        <translation>不模糊邊緣</translation>
    </message>
    <message id="backdrop.edgeBlur.bottom">
        <source>Blur the bottom</source>
        <translation>模糊底部</translation>
    </message>
    <message id="backdrop.edgeBlur.left">
        <source>Blur the left</source>
        <translation>模糊左側</translation>
    </message>
    <message id="backdrop.edgeBlur.right">
        <source>Blur the right</source>
        <translation>模糊右側</translation>
    </message>
    <message id="backdrop.edgeBlur.all">
        <source>Blur all edges</source>
        <translation>模糊所有邊緣</translation>
    </message>
    <message id="backdrop.curated.arc">
        <source>Arc</source>
        <translation>弧線</translation>
    </message>
    <message id="backdrop.curated.haze">
        <source>Haze</source>
        <translation>煙靄</translation>
    </message>
    <message id="backdrop.curated.lavender">
        <source>Lavender</source>
        <translation>薰衣草</translation>
    </message>
    <message id="backdrop.curated.ember">
        <source>Ember</source>
        <translation>餘燼</translation>
    </message>
    <message id="backdrop.curated.moss">
        <source>Moss</source>
        <translation>苔蘚</translation>
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
        <translation>鳶尾</translation>
    </message>
    <message id="backdrop.gradient.indigo">
        <source>Indigo</source>
        <translation>靛藍</translation>
    </message>
    <message id="backdrop.gradient.ocean">
        <source>Ocean</source>
        <translation>海洋</translation>
    </message>
    <message id="backdrop.gradient.mist">
        <source>Mist</source>
        <translation>薄霧</translation>
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
        <translation>藍色</translation>
    </message>
    <message id="backdrop.color.purple">
        <source>Purple</source>
        <translation>紫色</translation>
    </message>
    <message id="backdrop.color.pink">
        <source>Pink</source>
        <translation>粉紅色</translation>
    </message>
    <message id="backdrop.color.red">
        <source>Red</source>
        <translation>紅色</translation>
    </message>
    <message id="backdrop.color.orange">
        <source>Orange</source>
        <translation>橘色</translation>
    </message>
    <message id="backdrop.color.green">
        <source>Green</source>
        <translation>綠色</translation>
    </message>
    <message id="backdrop.color.teal">
        <source>Teal</source>
        <translation>藍綠色</translation>
    </message>
    <message id="backdrop.background">
        <source>Background</source>
        <translation>背景填滿</translation>
    </message>
    <message id="backdrop.ownPicture">
        <source>A picture of your own…</source>
        <translation>自選圖片…</translation>
    </message>
    <message id="backdrop.ownColor">
        <source>Another color…</source>
        <translation>其他顏色…</translation>
    </message>
    <message id="backdrop.ownPicture.title">
        <source>Choose a background picture</source>
        <translation>選擇背景圖片</translation>
    </message>
    <message id="backdrop.ownPicture.filter">
        <source>Pictures</source>
        <translation>圖片</translation>
    </message>
    <message id="backdrop.gradient.stops">
        <source>Colors of the gradient</source>
        <translation>漸層顏色</translation>
    </message>
    <message id="backdrop.gradient.stopsHelp">
        <source>Drag a color to move it, away to remove it; click to add one</source>
        <translation>拖曳顏色可移動，拖離可移除；按一下可加入</translation>
    </message>
    <message id="backdrop.gradient.color">
        <source>Color of the stop</source>
        <translation>色標顏色</translation>
    </message>
    <message id="backdrop.gradient.add">
        <source>Add a color</source>
        <translation>加入顏色</translation>
    </message>
    <message id="backdrop.gradient.remove">
        <source>Remove the color</source>
        <translation>移除顏色</translation>
    </message>
    <message id="backdrop.gradient.reverse">
        <source>Turn the gradient round</source>
        <translation>反轉漸層</translation>
    </message>
    <message id="backdrop.gradient.angle">
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message id="backdrop.styles">
        <source>Saved styles</source>
        <translation>已儲存的樣式</translation>
    </message>
    <message id="backdrop.styles.save">
        <source>Save this style…</source>
        <translation>儲存此樣式…</translation>
    </message>
    <message id="backdrop.styles.suggestion">
        <source>Style %1</source>
        <translation>樣式 %1</translation>
    </message>
    <message id="backdrop.styles.help">
        <source>Click applies the style; a right click renames, renews or deletes it</source>
        <translation>按一下套用樣式；按右鍵可重新命名、更新或刪除</translation>
    </message>
    <message id="backdrop.styles.rename">
        <source>Rename…</source>
        <translation>重新命名…</translation>
    </message>
    <message id="backdrop.styles.renameAction">
        <source>Rename</source>
        <translation>重新命名</translation>
    </message>
    <message id="backdrop.styles.update">
        <source>Replace with the current backdrop</source>
        <translation>以目前的背景取代</translation>
    </message>
    <message id="backdrop.styles.delete">
        <source>Delete</source>
        <translation>刪除</translation>
    </message>
    <message id="backdrop.styles.name">
        <source>Name of the style</source>
        <translation>樣式名稱</translation>
    </message>
    <message id="backdrop.styles.accept">
        <source>Save</source>
        <translation>儲存</translation>
    </message>
    <message id="canvas.hint.drawLine">
        <source>Drag to draw  ·  Shift keeps to steps of 45°</source>
        <translation>拖曳以繪製  ·  Shift：以 45° 為單位</translation>
    </message>
    <message id="canvas.hint.drawShape">
        <source>Drag to draw  ·  Shift makes it even, Alt starts from the center</source>
        <translation>拖曳以繪製  ·  Shift：等寬高  ·  Alt：從中心開始</translation>
    </message>
    <message id="canvas.hint.blur">
        <source>Drag over what should not be read</source>
        <translation>拖曳選取要隱藏的內容</translation>
    </message>
    <message id="canvas.hint.magnifier">
        <source>Drag a lens over what should be larger</source>
        <translation>拖曳選取要放大的部分</translation>
    </message>
    <message id="canvas.hint.pen">
        <source>Drag to draw freehand</source>
        <translation>拖曳以自由繪製</translation>
    </message>
    <message id="canvas.hint.counter">
        <source>Click to place the next number, drag to point it</source>
        <translation>按一下放置下一個編號，拖曳可指定指向</translation>
    </message>
    <message id="canvas.hint.text">
        <source>Click to type, drag for a width</source>
        <translation>按一下輸入文字，拖曳可指定寬度</translation>
    </message>
    <message id="canvas.hint.cropping">
        <source>Drag the edges to crop  ·  Return takes it  ·  Esc leaves</source>
        <translation>拖曳邊緣以裁切  ·  Enter：確定  ·  Esc：結束</translation>
    </message>
    <message id="canvas.hint.select">
        <source>Click to select, drag to select several</source>
        <translation>按一下選取，拖曳可選取多個</translation>
    </message>
    <message id="canvas.hint.move">
        <source>Drag to move  ·  the arrow keys nudge</source>
        <translation>拖曳以移動  ·  方向鍵：微調</translation>
    </message>
    <message id="canvas.hint.crop">
        <source>Drag to crop</source>
        <translation>拖曳以裁切</translation>
    </message>
    <message id="canvas.hint.resize">
        <source>Drag to resize  ·  Shift keeps it even, Alt keeps the center</source>
        <translation>拖曳以調整大小  ·  Shift：維持比例  ·  Alt：維持中心</translation>
    </message>
    <message id="canvas.hint.movePoint">
        <source>Drag to move this point</source>
        <translation>拖曳以移動此點</translation>
    </message>
    <message id="canvas.hint.turn">
        <source>Drag to turn</source>
        <translation>拖曳以旋轉</translation>
    </message>
    <message id="canvas.hint.editText">
        <source>Click to place the cursor, drag to select text</source>
        <translation>按一下放置游標，拖曳選取文字</translation>
    </message>
    <message id="canvas.description" numerus="yes">
        <source>Picture of %1 pixels with %n annotation(s)</source>
        <translation>
            <numerusform>%1 像素的圖片，含 %n 個註解</numerusform>
        </translation>
    </message>
    <message id="canvas.description.selected" numerus="yes">
        <source>%n selected</source>
        <translation>
            <numerusform>已選取 %n 個</numerusform>
        </translation>
    </message>
    <message id="canvas.name">
        <source>Canvas</source>
        <translation>畫布</translation>
    </message>
    <message id="canvas.hint.eyedropper">
        <source>Click to take the color  ·  Esc leaves</source>
        <translation>按一下擷取顏色  ·  Esc：結束</translation>
    </message>
    <message id="canvas.hint.pan">
        <source>Drag to move the view</source>
        <translation>拖曳以移動檢視畫面</translation>
    </message>
    <message id="color.red">
        <source>Red</source>
        <translation>紅色</translation>
    </message>
    <message id="color.orange">
        <source>Orange</source>
        <translation>橘色</translation>
    </message>
    <message id="color.yellow">
        <source>Yellow</source>
        <translation>黃色</translation>
    </message>
    <message id="color.green">
        <source>Green</source>
        <translation>綠色</translation>
    </message>
    <message id="color.blue">
        <source>Blue</source>
        <translation>藍色</translation>
    </message>
    <message id="color.violet">
        <source>Violet</source>
        <translation>紫色</translation>
    </message>
    <message id="color.pink">
        <source>Pink</source>
        <translation>粉紅色</translation>
    </message>
    <message id="color.slate">
        <source>Slate</source>
        <translation>石板灰</translation>
    </message>
    <message id="editor.color">
        <source>Color</source>
        <translation>顏色</translation>
    </message>
    <message id="editor.swatch.delete">
        <source>Delete Color</source>
        <translation>刪除顏色</translation>
    </message>
    <message id="editor.swatch.add">
        <source>Add a color of your own</source>
        <translation>加入自訂顏色</translation>
    </message>
    <message id="editor.swatch.tooltip">
        <source>Your color %1 (double click to edit)</source>
        <translation>自訂顏色 %1（按兩下以編輯）</translation>
    </message>
    <message id="editor.swatch.edit">
        <source>Edit Color…</source>
        <translation>編輯顏色…</translation>
    </message>
    <message id="editor.failed.render">
        <source>The picture is too large to be made.</source>
        <translation>圖片太大，無法產生。</translation>
    </message>
    <message id="editor.failed.encode">
        <source>The picture does not fit this format. PNG holds it.</source>
        <translation>圖片超出此格式的限制。PNG 可以容納。</translation>
    </message>
    <message id="editor.failed.write">
        <source>The file could not be written.</source>
        <translation>無法寫入檔案。</translation>
    </message>
    <message id="editor.progress.copy">
        <source>Copying…</source>
        <translation>正在複製…</translation>
    </message>
    <message id="editor.progress.save">
        <source>Saving…</source>
        <translation>正在儲存…</translation>
    </message>
    <message id="editor.saveAs.title">
        <source>Save the picture as</source>
        <translation>另存圖片</translation>
    </message>
    <message id="editor.saved">
        <source>Saved %1</source>
        <translation>已儲存 %1</translation>
    </message>
    <message id="editor.progress.print">
        <source>Printing…</source>
        <translation>正在列印…</translation>
    </message>
    <message id="editor.bar">
        <source>Tools and style</source>
        <translation>工具和樣式</translation>
    </message>
    <message id="editor.moreTools">
        <source>More tools</source>
        <translation>更多工具</translation>
    </message>
    <message id="editor.dragOut">
        <source>Drag the picture into another program</source>
        <translation>將圖片拖曳到其他程式</translation>
    </message>
    <message id="editor.copy.outdated">
        <source>%1: the clipboard holds an older state</source>
        <translation>%1：剪貼簿中不是最新內容</translation>
    </message>
    <message id="tool.select">
        <source>Select</source>
        <translation>選取</translation>
    </message>
    <message id="tool.arrow">
        <source>Arrow</source>
        <translation>箭頭</translation>
    </message>
    <message id="tool.rectangle">
        <source>Rectangle</source>
        <translation>矩形</translation>
    </message>
    <message id="tool.ellipse">
        <source>Ellipse</source>
        <translation>橢圓</translation>
    </message>
    <message id="tool.line">
        <source>Line</source>
        <translation>直線</translation>
    </message>
    <message id="tool.pen">
        <source>Pen</source>
        <translation>畫筆</translation>
    </message>
    <message id="tool.text">
        <source>Text</source>
        <translation>文字</translation>
    </message>
    <message id="tool.counter">
        <source>Counter</source>
        <translation>編號</translation>
    </message>
    <message id="tool.pixelate">
        <source>Pixelate</source>
        <translation>馬賽克</translation>
    </message>
    <message id="tool.magnifier">
        <source>Magnifier</source>
        <translation>放大鏡</translation>
    </message>
    <message id="editor.crop">
        <source>Crop</source>
        <translation>裁切</translation>
    </message>
    <message id="editor.thinner">
        <source>Thinner</source>
        <translation>變細</translation>
    </message>
    <message id="editor.thicker">
        <source>Thicker</source>
        <translation>變粗</translation>
    </message>
    <message id="editor.sketch">
        <source>Hand-Drawn</source>
        <translation>手繪風格</translation>
    </message>
    <message id="editor.fill">
        <source>Fill</source>
        <translation>填滿</translation>
    </message>
    <message id="editor.nextBlurStyle">
        <source>Next Way to Pixelate</source>
        <translation>切換遮蓋方式</translation>
    </message>
    <message id="editor.pickColor">
        <source>Pick Color from Screen</source>
        <translation>從螢幕擷取顏色</translation>
    </message>
    <message id="editor.undo">
        <source>Undo</source>
        <translation>復原</translation>
    </message>
    <message id="editor.redo">
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message id="editor.cut">
        <source>Cut</source>
        <translation>剪下</translation>
    </message>
    <message id="editor.copy">
        <source>Copy</source>
        <translation>複製</translation>
    </message>
    <message id="editor.paste">
        <source>Paste</source>
        <translation>貼上</translation>
    </message>
    <message id="editor.duplicate">
        <source>Duplicate</source>
        <translation>建立複本</translation>
    </message>
    <message id="editor.delete">
        <source>Delete</source>
        <translation>刪除</translation>
    </message>
    <message id="editor.selectAll">
        <source>Select All</source>
        <translation>全選</translation>
    </message>
    <message id="editor.bringForward">
        <source>Bring Forward</source>
        <translation>上移一層</translation>
    </message>
    <message id="editor.sendBackward">
        <source>Send Backward</source>
        <translation>下移一層</translation>
    </message>
    <message id="editor.bringToFront">
        <source>Bring to Front</source>
        <translation>移到最上層</translation>
    </message>
    <message id="editor.sendToBack">
        <source>Send to Back</source>
        <translation>移到最下層</translation>
    </message>
    <message id="editor.alignLeft">
        <source>Align Left Edges</source>
        <translation>靠左對齊</translation>
    </message>
    <message id="editor.alignCenter">
        <source>Align Centers Horizontally</source>
        <translation>水平置中對齊</translation>
    </message>
    <message id="editor.alignRight">
        <source>Align Right Edges</source>
        <translation>靠右對齊</translation>
    </message>
    <message id="editor.alignTop">
        <source>Align Top Edges</source>
        <translation>靠上對齊</translation>
    </message>
    <message id="editor.alignMiddle">
        <source>Align Centers Vertically</source>
        <translation>垂直置中對齊</translation>
    </message>
    <message id="editor.alignBottom">
        <source>Align Bottom Edges</source>
        <translation>靠下對齊</translation>
    </message>
    <message id="editor.distributeHorizontally">
        <source>Distribute Horizontally</source>
        <translation>水平均分</translation>
    </message>
    <message id="editor.distributeVertically">
        <source>Distribute Vertically</source>
        <translation>垂直均分</translation>
    </message>
    <message id="editor.resetCrop">
        <source>Reset Crop</source>
        <translation>重設裁切</translation>
    </message>
    <message id="editor.addCapture">
        <source>Add Capture</source>
        <translation>加入擷取畫面</translation>
    </message>
    <message id="editor.addPicture">
        <source>Add Picture…</source>
        <translation>加入圖片…</translation>
    </message>
    <message id="editor.backdrop">
        <source>Backdrop</source>
        <translation>背景</translation>
    </message>
    <message id="editor.copyPicture">
        <source>Copy Picture</source>
        <translation>複製圖片</translation>
    </message>
    <message id="editor.save">
        <source>Save</source>
        <translation>儲存</translation>
    </message>
    <message id="editor.saveAs">
        <source>Save As…</source>
        <translation>另存新檔…</translation>
    </message>
    <message id="editor.print">
        <source>Print…</source>
        <translation>列印…</translation>
    </message>
    <message id="editor.pin">
        <source>Pin to Screen</source>
        <translation>釘選在螢幕上</translation>
    </message>
    <message id="editor.close">
        <source>Close</source>
        <translation>關閉</translation>
    </message>
    <message id="editor.zoomIn">
        <source>Zoom In</source>
        <translation>放大</translation>
    </message>
    <message id="editor.zoomOut">
        <source>Zoom Out</source>
        <translation>縮小</translation>
    </message>
    <message id="editor.zoomToFit">
        <source>Fit to Window</source>
        <translation>符合視窗大小</translation>
    </message>
    <message id="editor.actualSize">
        <source>Actual Size</source>
        <translation>實際大小</translation>
    </message>
    <message id="editor.nextPart">
        <source>Next Part of the Window</source>
        <translation>視窗的下一個區域</translation>
    </message>
    <message id="editor.more">
        <source>More</source>
        <translation>更多</translation>
    </message>
    <message id="editor.shortcuts">
        <source>Keyboard Shortcuts</source>
        <translation>鍵盤快捷鍵</translation>
    </message>
    <message id="editor.group.tools">
        <source>Tools</source>
        <translation>工具</translation>
    </message>
    <message id="editor.group.style">
        <source>Style</source>
        <translation>樣式</translation>
    </message>
    <message id="editor.group.edit">
        <source>Edit</source>
        <translation>編輯</translation>
    </message>
    <message id="editor.group.arrange">
        <source>Arrange</source>
        <translation>排列</translation>
    </message>
    <message id="editor.group.picture">
        <source>Picture</source>
        <translation>圖片</translation>
    </message>
    <message id="editor.group.view">
        <source>View</source>
        <translation>檢視</translation>
    </message>
    <message id="editor.menu.order">
        <source>Order</source>
        <translation>圖層順序</translation>
    </message>
    <message id="editor.menu.align">
        <source>Align</source>
        <translation>對齊</translation>
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
        <translation>手繪風格</translation>
    </message>
    <message id="editor.fillTooltip">
        <source>Filled</source>
        <translation>填滿</translation>
    </message>
    <message id="editor.textStyleTooltip">
        <source>Text on a filled box</source>
        <translation>文字加底色方塊</translation>
    </message>
    <message id="editor.textFontTooltip">
        <source>Handwriting</source>
        <translation>手寫字型</translation>
    </message>
    <message id="editor.blurStyle.hides">
        <source>Hides what is below it for good.</source>
        <translation>徹底隱藏下方內容，無法還原。</translation>
    </message>
    <message id="editor.blurStyle.mosaic">
        <source>Mosaic</source>
        <translation>像素化</translation>
    </message>
    <message id="editor.blurStyle.erase">
        <source>Paint Over</source>
        <translation>純色覆蓋</translation>
    </message>
    <message id="editor.blurStyle.gaussian">
        <source>Blur</source>
        <translation>模糊</translation>
    </message>
    <message id="editor.blurStyle.gaussian.warning">
        <source>Decorates only: what is below can often be made readable again. Hide secrets with the other two.</source>
        <translation>僅供裝飾：下方內容往往可以還原。如需隱藏機密，請使用另外兩種方式。</translation>
    </message>
    <message id="editor.blurStyleTooltip">
        <source>How it is hidden</source>
        <translation>遮蓋方式</translation>
    </message>
    <message id="editor.blurFillColor">
        <source>Color it is painted over with</source>
        <translation>覆蓋顏色</translation>
    </message>
    <message id="editor.blurFillColor.automatic">
        <source>Take the color from around it</source>
        <translation>取用周圍的顏色</translation>
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
        <translation>圓形</translation>
    </message>
    <message id="editor.magnifierShape.roundedRect">
        <source>Rounded rectangle</source>
        <translation>圓角矩形</translation>
    </message>
    <message id="editor.magnifierShapeTooltip">
        <source>Shape of the lens</source>
        <translation>放大鏡形狀</translation>
    </message>
    <message id="editor.magnificationTooltip">
        <source>Magnification</source>
        <translation>放大倍率</translation>
    </message>
    <message id="editor.format.png">
        <source>PNG picture (*.png)</source>
        <translation>PNG 圖片 (*.png)</translation>
    </message>
    <message id="editor.format.jpeg">
        <source>JPEG picture (*.jpg *.jpeg)</source>
        <translation>JPEG 圖片 (*.jpg *.jpeg)</translation>
    </message>
    <message id="editor.format.webp">
        <source>WebP picture (*.webp)</source>
        <translation>WebP 圖片 (*.webp)</translation>
    </message>
    <message id="editor.format.tiff">
        <source>TIFF picture (*.tiff *.tif)</source>
        <translation>TIFF 圖片 (*.tiff *.tif)</translation>
    </message>
    <message id="editor.format.pdf">
        <source>PDF document (*.pdf)</source>
        <translation>PDF 文件 (*.pdf)</translation>
    </message>
    <message id="pin.zoom">
        <source>Zoom</source>
        <translation>縮放</translation>
    </message>
    <message id="pin.zoom.hint">
        <source>0 for the picture&apos;s own size</source>
        <translation>按 0 恢復原始大小</translation>
    </message>
    <message id="pin.copy">
        <source>Copy</source>
        <translation>複製</translation>
    </message>
    <message id="pin.copy.hint">
        <source>Ctrl+C; drag it into another program</source>
        <translation>Ctrl+C；也可拖曳到其他程式</translation>
    </message>
    <message id="pin.edit">
        <source>Edit</source>
        <translation>編輯</translation>
    </message>
    <message id="pin.more">
        <source>More</source>
        <translation>更多</translation>
    </message>
    <message id="pin.close">
        <source>Close</source>
        <translation>關閉</translation>
    </message>
    <message id="pin.percent">
        <source>%1 %</source>
        <translation>%1%</translation>
    </message>
    <message id="pin.save">
        <source>Save</source>
        <translation>儲存</translation>
    </message>
    <message id="pin.opacity">
        <source>Opacity</source>
        <translation>不透明度</translation>
    </message>
    <message id="pin.shadow">
        <source>Shadow</source>
        <translation>陰影</translation>
    </message>
    <message id="pin.roundedCorners">
        <source>Rounded Corners</source>
        <translation>圓角</translation>
    </message>
    <message id="pin.clickThrough">
        <source>Let Clicks Through</source>
        <translation>點擊穿透</translation>
    </message>
    <message id="pin.closeAll">
        <source>Close All Pins</source>
        <translation>關閉所有釘選的圖片</translation>
    </message>
    <message id="pin.window">
        <source>Pinned picture</source>
        <translation>釘選的圖片</translation>
    </message>
    <message id="pin.opacity.badge">
        <source>Opacity %1</source>
        <translation>不透明度 %1</translation>
    </message>
    <message id="pin.clickThrough.began">
        <source>Clicks now go through the pin. The Vellora menu ends this.</source>
        <translation>點擊現在會穿透釘選的圖片。可在 Vellora 選單中取消。</translation>
    </message>
    <message id="editor.shortcuts.lock">
        <source>Keep the Tool</source>
        <translation>鎖定工具</translation>
    </message>
    <message id="editor.shortcuts.doubleClick">
        <source>double click</source>
        <translation>按兩下</translation>
    </message>
    <message id="editor.shortcuts.colors">
        <source>Colors</source>
        <translation>顏色</translation>
    </message>
    <message id="editor.shortcuts.pan">
        <source>Move the Picture</source>
        <translation>移動圖片</translation>
    </message>
    <message id="editor.shortcuts.space">
        <source>Space</source>
        <translation>空白鍵</translation>
    </message>
    <message id="editor.shortcuts.drag">
        <source>drag</source>
        <translation>拖曳</translation>
    </message>
    <message id="editor.cancel">
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message id="editor.zoom">
        <source>Zoom</source>
        <translation>縮放</translation>
    </message>
    <message id="editor.moreStyle">
        <source>More of the style</source>
        <translation>更多樣式選項</translation>
    </message>
    <message id="editor.width">
        <source>Width</source>
        <translation>粗細</translation>
    </message>
    <message id="editor.width.preset">
        <source>Width %1</source>
        <translation>粗細 %1</translation>
    </message>
    <message id="color.plane">
        <source>Saturation and brightness</source>
        <translation>飽和度和亮度</translation>
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
        <translation>十六進位色碼</translation>
    </message>
    <message id="color.eyedropper">
        <source>Pick a color from the screen</source>
        <translation>從螢幕擷取顏色</translation>
    </message>
    <message id="editor.copiedSelection">
        <source>Copied the selection</source>
        <translation>已複製選取的內容</translation>
    </message>
    <message id="compress.compare.value">
        <source>%1 % before</source>
        <translation>之前 %1 %</translation>
    </message>
    <message id="compress.compare.selectOne">
        <source>Select an image to compare it with its result</source>
        <translation>選擇一張圖片以與結果比較</translation>
    </message>
    <message id="compress.compare.before">
        <source>Before</source>
        <translation>之前</translation>
    </message>
    <message id="compress.compare.after">
        <source>After</source>
        <translation>之後</translation>
    </message>
    <message id="compress.compare.fit">
        <source>Show the whole picture</source>
        <translation>顯示整張圖片</translation>
    </message>
    <message id="compress.compare.actual">
        <source>Show at 100 %</source>
        <translation>以 100 % 顯示</translation>
    </message>
    <message id="compress.compare.zoom">
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message id="compress.compare.busy">
        <source>The result is being made</source>
        <translation>正在產生結果</translation>
    </message>
    <message id="compress.compare.name">
        <source>Before and after</source>
        <translation>之前與之後</translation>
    </message>
    <message id="compress.compare.help">
        <source>The arrow keys move the divider. B shows only the picture before.</source>
        <translation>方向鍵移動分隔線。按 B 只顯示之前的圖片。</translation>
    </message>
    <message id="compress.drop.hint">
        <source>Drop images or folders here</source>
        <translation>將圖片或資料夾拖放到此處</translation>
    </message>
    <message id="compress.drop.more">
        <source>or paste them with %1. Originals are never changed, and results are never larger.</source>
        <translation>或用 %1 貼上。原始檔案不會被更改，結果也不會變大。</translation>
    </message>
    <message id="compress.drop.choose">
        <source>Choose Images…</source>
        <translation>選擇圖片…</translation>
    </message>
    <message id="compress.cancel">
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message id="compress.cancelTip">
        <source>Stop compressing (Esc)</source>
        <translation>停止壓縮 (Esc)</translation>
    </message>
    <message id="compress.actionOne">
        <source>Compress 1 Image</source>
        <translation>壓縮 1 張圖片</translation>
    </message>
    <message id="compress.actionMany">
        <source>Compress %1 Images</source>
        <translation>壓縮 %1 張圖片</translation>
    </message>
    <message id="compress.actionNone">
        <source>Compress</source>
        <translation>壓縮</translation>
    </message>
    <message id="compress.progress.count">
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message id="compress.toast.failed" numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n 張失敗</numerusform>
        </translation>
    </message>
    <message id="compress.row.keptTip">
        <source>Nothing smaller was found in this format and size</source>
        <translation>在此格式和尺寸下無法更小</translation>
    </message>
    <message id="compress.row.resultTip">
        <source>Result: %1</source>
        <translation>結果:%1</translation>
    </message>
    <message id="compress.row.flattenedTip">
        <source>This format cannot be transparent: the background became white</source>
        <translation>此格式不支援透明，背景已變為白色</translation>
    </message>
    <message id="compress.command.retry">
        <source>Try Again</source>
        <translation>重試</translation>
    </message>
    <message id="compress.command.reveal">
        <source>Show Result in Folder</source>
        <translation>在資料夾中顯示結果</translation>
    </message>
    <message id="compress.command.remove">
        <source>Remove from List</source>
        <translation>從列表中移除</translation>
    </message>
    <message id="compress.list">
        <source>Images</source>
        <translation>圖片</translation>
    </message>
    <message id="compress.settingsTitle">
        <source>Settings</source>
        <translation>設定</translation>
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
        <translation>每張圖片保持原有格式</translation>
    </message>
    <message id="compress.format.jpegTip">
        <source>For photos; no transparency</source>
        <translation>適合照片;不支援透明</translation>
    </message>
    <message id="compress.format.pngTip">
        <source>Exact to the pixel; for screenshots and drawings</source>
        <translation>像素級精確;適合截圖和圖畫</translation>
    </message>
    <message id="compress.format.webpTip">
        <source>Smallest, for the web; keeps transparency</source>
        <translation>體積最小，適合網頁;保留透明</translation>
    </message>
    <message id="compress.label.quality">
        <source>Quality</source>
        <translation>品質</translation>
    </message>
    <message id="compress.quality.percent">
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message id="compress.quality.unused">
        <source>Nothing is lost in these formats, so quality changes nothing.</source>
        <translation>這些格式不會損失任何內容，品質設定不起作用。</translation>
    </message>
    <message id="compress.label.resize">
        <source>Resize</source>
        <translation>調整大小</translation>
    </message>
    <message id="compress.resize.fixed">
        <source>%1 – at most %2 px</source>
        <translation>%1 – 最大 %2 px</translation>
    </message>
    <message id="compress.resize.off">
        <source>Off</source>
        <translation>關閉</translation>
    </message>
    <message id="compress.resize.custom">
        <source>Custom</source>
        <translation>自訂</translation>
    </message>
    <message id="compress.resize.customTip">
        <source>Longest edge in pixels. Smaller images stay as they are.</source>
        <translation>最長邊的像素數。較小的圖片保持不變。</translation>
    </message>
    <message id="compress.resize.pixels">
        <source>pixels</source>
        <translation>像素</translation>
    </message>
    <message id="compress.label.output">
        <source>Save results</source>
        <translation>儲存結果</translation>
    </message>
    <message id="compress.output.source">
        <source>Beside the originals</source>
        <translation>原始檔案旁</translation>
    </message>
    <message id="compress.output.custom">
        <source>In another folder</source>
        <translation>其他資料夾</translation>
    </message>
    <message id="compress.output.choose">
        <source>Choose…</source>
        <translation>選擇…</translation>
    </message>
    <message id="compress.output.chooseTitle">
        <source>Choose a folder for the results</source>
        <translation>選擇儲存結果的資料夾</translation>
    </message>
    <message id="compress.keepMetadata">
        <source>Keep metadata</source>
        <translation>保留中繼資料</translation>
    </message>
    <message id="compress.keepMetadataHelp">
        <source>Camera, place, author. Off: nobody learns where a photo was taken.</source>
        <translation>相機、地點、作者。關閉後，沒有人知道照片的拍攝地點。</translation>
    </message>
    <message id="compress.keepDates">
        <source>Keep dates</source>
        <translation>保留日期</translation>
    </message>
    <message id="compress.keepDatesHelp">
        <source>Results get the file dates of their originals.</source>
        <translation>結果使用原始檔案的日期。</translation>
    </message>
    <message id="compress.row.kept">
        <source>Kept as it was</source>
        <translation>保持原樣</translation>
    </message>
    <message id="compress.row.metadataRemoved">
        <source>Only metadata removed</source>
        <translation>僅移除了中繼資料</translation>
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
        <translation>減少 %1%</translation>
    </message>
    <message id="compress.row.larger">
        <source>%1% larger</source>
        <translation>增加 %1%</translation>
    </message>
    <message id="compress.row.pixels">
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message id="compress.progress.secondsLeft" numerus="yes">
        <source>%n second(s) left</source>
        <translation>
            <numerusform>剩餘 %n 秒</numerusform>
        </translation>
    </message>
    <message id="compress.progress.minutesLeft" numerus="yes">
        <source>%n minute(s) left</source>
        <translation>
            <numerusform>剩餘 %n 分鐘</numerusform>
        </translation>
    </message>
    <message id="compress.failure.notFound">
        <source>The file is no longer there</source>
        <translation>檔案已不存在</translation>
    </message>
    <message id="compress.failure.notPermitted">
        <source>You are not allowed to read or write here</source>
        <translation>您無權在此讀取或寫入</translation>
    </message>
    <message id="compress.failure.notAFile">
        <source>This is not a file</source>
        <translation>這不是檔案</translation>
    </message>
    <message id="compress.failure.notAPicture">
        <source>This is not an image</source>
        <translation>這不是圖片</translation>
    </message>
    <message id="compress.failure.tooLarge">
        <source>The image is too large</source>
        <translation>圖片太大</translation>
    </message>
    <message id="compress.failure.unsupported">
        <source>This kind of image is not supported</source>
        <translation>不支援此類圖片</translation>
    </message>
    <message id="compress.failure.animated">
        <source>Animations and pages can only keep their format and size</source>
        <translation>動畫和多頁圖片只能保持格式和尺寸</translation>
    </message>
    <message id="compress.failure.damaged">
        <source>The file is damaged</source>
        <translation>檔案已損壞</translation>
    </message>
    <message id="compress.failure.outOfMemory">
        <source>There is not enough memory</source>
        <translation>記憶體不足</translation>
    </message>
    <message id="compress.failure.cannotEncode">
        <source>The image does not fit this format</source>
        <translation>圖片不適合此格式</translation>
    </message>
    <message id="compress.failure.diskFull">
        <source>The disk is full</source>
        <translation>磁碟已滿</translation>
    </message>
    <message id="compress.failure.writeFailed">
        <source>The result could not be written</source>
        <translation>無法寫入結果</translation>
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
        <translation>正在壓縮…</translation>
    </message>
    <message id="compress.row.same">
        <source>Same size</source>
        <translation>大小相同</translation>
    </message>
    <message id="compress.row.failed">
        <source>Failed</source>
        <translation>失敗</translation>
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
        <translation>來源資料夾</translation>
    </message>
    <message id="compress.title">
        <source>Compress Images</source>
        <translation>壓縮圖片</translation>
    </message>
    <message id="compress.command.addImages">
        <source>Add Images…</source>
        <translation>加入圖片…</translation>
    </message>
    <message id="compress.command.addFolder">
        <source>Add Folder…</source>
        <translation>加入資料夾…</translation>
    </message>
    <message id="compress.command.paste">
        <source>Paste</source>
        <translation>貼上</translation>
    </message>
    <message id="compress.command.compare">
        <source>Compare Before and After</source>
        <translation>比較前後</translation>
    </message>
    <message id="compress.command.clear">
        <source>Remove All</source>
        <translation>全部移除</translation>
    </message>
    <message id="compress.command.settings">
        <source>Show or Hide Settings</source>
        <translation>顯示或隱藏設定</translation>
    </message>
    <message id="compress.add">
        <source>Add</source>
        <translation>加入</translation>
    </message>
    <message id="compress.addTip">
        <source>Add images, folders, or captures</source>
        <translation>加入圖片、資料夾或截圖</translation>
    </message>
    <message id="compress.key.space">
        <source>Space</source>
        <translation>空白鍵</translation>
    </message>
    <message id="compress.toast.nothingToPaste">
        <source>There is no image on the clipboard</source>
        <translation>剪貼簿中沒有圖片</translation>
    </message>
    <message id="compress.pastedName">
        <source>Pasted Image %1</source>
        <translation>貼上的圖片 %1</translation>
    </message>
    <message id="compress.toast.nothingFound">
        <source>No new images were found there</source>
        <translation>那裡沒有找到新圖片</translation>
    </message>
    <message id="compress.looking">
        <source>Looking for images…</source>
        <translation>正在尋找圖片…</translation>
    </message>
    <message id="compress.summary.count" numerus="yes">
        <source>%n image(s)</source>
        <translation>
            <numerusform>%n 張圖片</numerusform>
        </translation>
    </message>
    <message id="compress.addImages.title">
        <source>Add images</source>
        <translation>加入圖片</translation>
    </message>
    <message id="compress.addImages.filter">
        <source>Images (%1)</source>
        <translation>圖片 (%1)</translation>
    </message>
    <message id="compress.addImages.allFiles">
        <source>All files (*)</source>
        <translation>所有檔案 (*)</translation>
    </message>
    <message id="compress.addFolder.title">
        <source>Add a folder of images</source>
        <translation>加入圖片資料夾</translation>
    </message>
    <message id="compress.command.captures">
        <source>Recent Captures</source>
        <translation>最近的截圖</translation>
    </message>
    <message id="compress.toast.done" numerus="yes">
        <source>%n image(s) compressed</source>
        <translation>
            <numerusform>已壓縮 %n 張圖片</numerusform>
        </translation>
    </message>
    <message id="compress.toast.savedPercent">
        <source>%1 saved (%2%)</source>
        <translation>節省 %1(%2%)</translation>
    </message>
    <message id="compress.toast.stopped" numerus="yes">
        <source>%n stopped</source>
        <translation>
            <numerusform>%n 張已停止</numerusform>
        </translation>
    </message>
    <message id="editor.compress">
        <source>Compress…</source>
        <translation>壓縮…</translation>
    </message>
    <message id="recording.bar.level">
        <source>Level of the microphone</source>
        <translation>麥克風音量</translation>
    </message>
    <message id="recording.bar.device">
        <source>%1: %2</source>
        <translation>%1:%2</translation>
    </message>
    <message id="recording.bar.start">
        <source>Start</source>
        <translation>開始</translation>
    </message>
    <message id="recording.bar.startTip">
        <source>Start recording (Return)</source>
        <translation>開始錄製 (Return)</translation>
    </message>
    <message id="recording.camera.close">
        <source>Turn the camera off</source>
        <translation>關閉攝影機</translation>
    </message>
    <message id="recording.camera">
        <source>Camera</source>
        <translation>攝影機</translation>
    </message>
    <message id="recording.camera.help">
        <source>Drag to move, turn the wheel to resize</source>
        <translation>拖曳可移動，滾輪可調整大小</translation>
    </message>
    <message id="recording.bar.resume">
        <source>Resume</source>
        <translation>繼續</translation>
    </message>
    <message id="recording.bar.pause">
        <source>Pause</source>
        <translation>暫停</translation>
    </message>
    <message id="recording.bar.sound.on">
        <source>Sound of the computer: on</source>
        <translation>電腦聲音:開</translation>
    </message>
    <message id="recording.bar.sound.off">
        <source>Sound of the computer: off</source>
        <translation>電腦聲音:關</translation>
    </message>
    <message id="recording.bar.keys.on">
        <source>Keystrokes are recorded</source>
        <translation>正在記錄按鍵</translation>
    </message>
    <message id="recording.bar.keys.off">
        <source>Keystrokes are not recorded</source>
        <translation>不記錄按鍵</translation>
    </message>
    <message id="recording.bar.startingIn">
        <source>Starting in %1</source>
        <translation>%1 秒後開始</translation>
    </message>
    <message id="recording.bar.starting">
        <source>Starting…</source>
        <translation>正在開始…</translation>
    </message>
    <message id="recording.bar">
        <source>Recording</source>
        <translation>錄製</translation>
    </message>
    <message id="recording.bar.mic">
        <source>Microphone</source>
        <translation>麥克風</translation>
    </message>
    <message id="recording.bar.mic.none">
        <source>No microphone</source>
        <translation>無麥克風</translation>
    </message>
    <message id="recording.bar.camera">
        <source>Camera</source>
        <translation>攝影機</translation>
    </message>
    <message id="recording.bar.camera.none">
        <source>No camera</source>
        <translation>無攝影機</translation>
    </message>
    <message id="recording.bar.cancel">
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message id="recording.bar.elapsed">
        <source>Recorded time</source>
        <translation>已錄製時間</translation>
    </message>
    <message id="recording.bar.stop">
        <source>Stop and keep the recording</source>
        <translation>停止並保留錄製</translation>
    </message>
    <message id="recording.bar.close">
        <source>Close</source>
        <translation>關閉</translation>
    </message>
    <message id="recording.bar.keys.hidden">
        <source>A password is being typed: keystrokes are not recorded</source>
        <translation>正在輸入密碼:不記錄按鍵</translation>
    </message>
    <message id="recording.countdown" numerus="yes">
        <source>Recording starts in %n second(s)</source>
        <translation>
            <numerusform>%n 秒後開始錄製</numerusform>
        </translation>
    </message>
    <message id="alert.ok">
        <source>OK</source>
        <translation>好</translation>
    </message>
    <message id="recording.error.writerSetupFailed">
        <source>Failed to set up the video writer.</source>
        <translation>無法準備影片寫入。</translation>
    </message>
    <message id="recording.error.writeFailed">
        <source>Failed to write the recording.</source>
        <translation>無法寫入錄製內容。</translation>
    </message>
    <message id="recording.error.displayNotFound">
        <source>Could not find the display to record.</source>
        <translation>找不到要錄製的顯示器。</translation>
    </message>
    <message id="recording.error.windowNotFound">
        <source>Could not find the window to record.</source>
        <translation>找不到要錄製的視窗。</translation>
    </message>
    <message id="recording.error.micNotFound">
        <source>Could not find the selected microphone.</source>
        <translation>找不到所選的麥克風。</translation>
    </message>
    <message id="recording.error.cameraNotFound">
        <source>Could not find the selected camera.</source>
        <translation>找不到所選的攝影機。</translation>
    </message>
    <message id="toast.recordingFailed">
        <source>The recording could not be kept</source>
        <translation>無法保留錄製內容</translation>
    </message>
    <message id="record.keyboard.saveFailed">
        <source>The recording is complete, but its keystrokes could not be saved</source>
        <translation>錄製內容完整，但無法儲存按鍵</translation>
    </message>
    <message id="recording.mic.unavailable">
        <source>The microphone cannot be used: recording without it</source>
        <translation>麥克風無法使用:將在沒有麥克風的情況下錄製</translation>
    </message>
    <message id="recording.mic.lost">
        <source>The microphone is gone: the recording goes on without sound from it</source>
        <translation>麥克風已中斷:錄製將在沒有其聲音的情況下繼續</translation>
    </message>
    <message id="recording.camera.lost">
        <source>The camera is gone: the recording goes on without it</source>
        <translation>攝影機已中斷:錄製將在沒有它的情況下繼續</translation>
    </message>
    <message id="recording.disk.low">
        <source>The disk has room for about five more minutes of recording</source>
        <translation>磁碟空間還可錄製約五分鐘</translation>
    </message>
    <message id="recording.disk.full">
        <source>The recording was stopped because the disk is nearly full. Everything so far is kept.</source>
        <translation>磁碟快滿了，錄製已停止。此前的內容均已保留。</translation>
    </message>
    <message id="recording.stopped">
        <source>What was being recorded is gone. The recording up to then is kept.</source>
        <translation>錄製的對象已消失。此前的錄製內容已保留。</translation>
    </message>
    <message id="record.keyboard.permission.title">
        <source>Keystrokes cannot be recorded</source>
        <translation>無法記錄按鍵</translation>
    </message>
    <message id="record.keyboard.permission.body">
        <source>This desktop does not let programs see which keys are pressed. The rest is recorded as usual.</source>
        <translation>此桌面不允許程式查看按下的按鍵。其餘內容照常錄製。</translation>
    </message>
    <message id="alert.importVideo.unreadable.title">
        <source>This file cannot be read as a video</source>
        <translation>無法將此檔案作為影片讀取</translation>
    </message>
    <message id="recording.startFailed">
        <source>The recording could not be started</source>
        <translation>無法開始錄製</translation>
    </message>
    <message id="recording.region.fullDisplay">
        <source>Full display</source>
        <translation>整個螢幕</translation>
    </message>
    <message id="recording.region.square">
        <source>Square</source>
        <translation>正方形</translation>
    </message>
    <message id="recording.region.presets">
        <source>Sizes and shapes</source>
        <translation>尺寸和形狀</translation>
    </message>
    <message id="recording.region.badge">
        <source>Size of the recording; drag to move it</source>
        <translation>錄製尺寸;拖曳可移動</translation>
    </message>
    <message id="recording.region.sizes">
        <source>%1 px · %2 pt</source>
        <translation>%1 px · %2 pt</translation>
    </message>
    <message id="toast.recordingsRecovered" numerus="yes">
        <source>%n interrupted recording(s) saved: look under Recent Recordings</source>
        <translation>
            <numerusform>%n 個中斷的錄影已儲存，可在「最近的錄影」中找到</numerusform>
        </translation>
    </message>
    <message id="toast.recordingNotOpened">
        <source>This recording cannot be opened: it has no movie</source>
        <translation>無法開啟此錄影：其中沒有影片</translation>
    </message>
    <message id="record.source.region">
        <source>Region</source>
        <translation>區域</translation>
    </message>
    <message id="record.source.window">
        <source>Window</source>
        <translation>視窗</translation>
    </message>
    <message id="record.source.fullscreen">
        <source>Full screen</source>
        <translation>全螢幕</translation>
    </message>
    <message id="import.video.title">
        <source>Import a video</source>
        <translation>匯入影片</translation>
    </message>
    <message id="import.video.filter">
        <source>Videos (%1)</source>
        <translation>影片 (%1)</translation>
    </message>
    <message id="import.video.all">
        <source>All files (*)</source>
        <translation>所有檔案 (*)</translation>
    </message>
    <message id="toast.importingVideo">
        <source>Importing the video…</source>
        <translation>正在匯入影片…</translation>
    </message>
    <message id="toast.importNotCopied">
        <source>The video could not be copied into the recordings folder</source>
        <translation>無法將影片複製到錄影資料夾</translation>
    </message>
    <message id="player.picture">
        <source>Picture</source>
        <translation>畫面</translation>
    </message>
    <message id="player.play">
        <source>Play</source>
        <translation>播放</translation>
    </message>
    <message id="player.sound">
        <source>Sound</source>
        <translation>聲音</translation>
    </message>
    <message id="player.reveal">
        <source>Show in Folder</source>
        <translation>在檔案夾中顯示</translation>
    </message>
    <message id="player.notPlayable">
        <source>The movie of this recording cannot be played. Its folder may still hold what was recorded.</source>
        <translation>無法播放此錄製的影片。錄製的內容可能仍在其檔案夾中。</translation>
    </message>
    <message id="player.pause">
        <source>Pause</source>
        <translation>暫停</translation>
    </message>
    <message id="player.position">
        <source>Position</source>
        <translation>播放位置</translation>
    </message>
    <message id="recording.systemSound.unavailable">
        <source>This computer&apos;s sound cannot be recorded: the recording goes on without it</source>
        <translation>無法錄製此電腦的聲音:錄製將在沒有它的情況下繼續</translation>
    </message>
    <message id="recording.camera.unavailable">
        <source>The camera cannot be used: recording without it</source>
        <translation>無法使用攝影機:錄製時不使用它</translation>
    </message>
    <message id="recording.mic.returned">
        <source>The microphone is back and recorded again</source>
        <translation>麥克風已恢復，繼續錄製</translation>
    </message>
    <message id="recording.systemSound.returned">
        <source>This computer&apos;s sound is recorded again</source>
        <translation>已恢復錄製這台電腦的聲音</translation>
    </message>
</context>
</TS>
