<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name></name>
    <message id="toast.noTray">
        <source>Vellora is running. This desktop has no tray: start Vellora again to see its commands.</source>
        <translation>Vellora は実行中です。このデスクトップにはシステムトレイがありません。コマンドを表示するには、Vellora をもう一度起動してください。</translation>
    </message>
    <message id="toast.reopenFailed">
        <source>This capture can no longer be read</source>
        <translation>このキャプチャは読み込めなくなっています</translation>
    </message>
    <message id="alert.clearHistory.title">
        <source>Clear the capture history?</source>
        <translation>キャプチャの履歴を消去しますか？</translation>
    </message>
    <message id="alert.clearHistory.body">
        <source>The recent captures will be deleted. Saved files stay where they are.</source>
        <translation>最近のキャプチャが削除されます。保存済みのファイルはそのまま残ります。</translation>
    </message>
    <message id="alert.clearHistory.confirm">
        <source>Clear History</source>
        <translation>履歴を消去</translation>
    </message>
    <message id="alert.cancel">
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message id="load.file.title">
        <source>Open a picture</source>
        <translation>画像を開く</translation>
    </message>
    <message id="load.file.filter">
        <source>Pictures (%1)</source>
        <translation>画像 (%1)</translation>
    </message>
    <message id="alert.cleanupRecordings.title" numerus="yes">
        <source>Move %n recording(s) to the Trash?</source>
        <translation>
            <numerusform>%n 件の録画をゴミ箱に移動しますか？</numerusform>
        </translation>
    </message>
    <message id="alert.cleanupRecordings.body">
        <source>They take up %1.</source>
        <translation>使用容量：%1。</translation>
    </message>
    <message id="alert.cleanupRecordings.openNote">
        <source>Recordings that are open stay.</source>
        <translation>開いている録画は残ります。</translation>
    </message>
    <message id="alert.cleanupRecordings.confirm">
        <source>Move to Trash</source>
        <translation>ゴミ箱に移動</translation>
    </message>
    <message id="toast.recordingsTrashed">
        <source>Recordings moved to the Trash</source>
        <translation>録画をゴミ箱に移動しました</translation>
    </message>
    <message id="alert.screenRecording.title">
        <source>Vellora is not allowed to see the screen</source>
        <translation>Vellora に画面の表示内容へのアクセスが許可されていません</translation>
    </message>
    <message id="alert.screenRecording.body">
        <source>Allow Vellora to record the screen in the desktop&apos;s privacy settings, then try again.</source>
        <translation>デスクトップのプライバシー設定で Vellora に画面の録画を許可してから、もう一度お試しください。</translation>
    </message>
    <message id="alert.accessibility.title">
        <source>Vellora is not allowed to follow the pointer</source>
        <translation>Vellora にポインターの追跡が許可されていません</translation>
    </message>
    <message id="alert.accessibility.body">
        <source>Allow Vellora to use accessibility in the desktop&apos;s privacy settings, then try again.</source>
        <translation>デスクトップのプライバシー設定で Vellora にアクセシビリティの使用を許可してから、もう一度お試しください。</translation>
    </message>
    <message id="alert.screenRecording.open">
        <source>Open Settings</source>
        <translation>設定を開く</translation>
    </message>
    <message id="load.error.noPicture">
        <source>No picture could be read from the clipboard</source>
        <translation>クリップボードから画像を読み取れませんでした</translation>
    </message>
    <message id="settings.about.title">
        <source>About</source>
        <translation>情報</translation>
    </message>
    <message id="settings.about.summary">
        <source>Screenshots, recordings and live streams</source>
        <translation>スクリーンショット、録画、ライブ配信</translation>
    </message>
    <message id="settings.about.version">
        <source>Version %1</source>
        <translation>バージョン %1</translation>
    </message>
    <message id="settings.about.licence">
        <source>Licence</source>
        <translation>ライセンス</translation>
    </message>
    <message id="settings.about.website">
        <source>Website</source>
        <translation>Web サイト</translation>
    </message>
    <message id="settings.about.issues">
        <source>Report a problem</source>
        <translation>問題を報告</translation>
    </message>
    <message id="settings.about.licences">
        <source>Licences of fonts, icons and libraries</source>
        <translation>フォント、アイコン、ライブラリのライセンス</translation>
    </message>
    <message id="settings.general.title">
        <source>General</source>
        <translation>一般</translation>
    </message>
    <message id="settings.general.afterCapture">
        <source>After a capture</source>
        <translation>キャプチャ後の動作</translation>
    </message>
    <message id="settings.clipboard.title">
        <source>Clipboard</source>
        <translation>クリップボード</translation>
    </message>
    <message id="settings.clipboard.copyAs">
        <source>Copy captures as</source>
        <translation>キャプチャのコピー形式</translation>
    </message>
    <message id="settings.clipboard.info">
        <source>Some programs paste files, others paste pictures. With both, each takes the one it understands.</source>
        <translation>ファイルを貼り付けるアプリケーションと、画像を貼り付けるアプリケーションがあります。両方をコピーすると、それぞれが対応する形式を使用します。</translation>
    </message>
    <message id="settings.general.saving">
        <source>Saving</source>
        <translation>保存</translation>
    </message>
    <message id="settings.general.saveFolder">
        <source>Folder for captures</source>
        <translation>キャプチャの保存先</translation>
    </message>
    <message id="settings.general.choose">
        <source>Choose…</source>
        <translation>選択…</translation>
    </message>
    <message id="settings.general.resetDesktop">
        <source>Use Desktop Folder</source>
        <translation>デスクトップを使用</translation>
    </message>
    <message id="settings.general.resetDesktopHelp">
        <source>Save captures to the Desktop folder again</source>
        <translation>キャプチャの保存先をデスクトップフォルダーに戻します</translation>
    </message>
    <message id="settings.general.language">
        <source>Language</source>
        <translation>言語</translation>
    </message>
    <message id="settings.general.interfaceLanguage">
        <source>Language of the interface</source>
        <translation>表示言語</translation>
    </message>
    <message id="settings.general.systemLanguage">
        <source>System language</source>
        <translation>システムの言語</translation>
    </message>
    <message id="settings.general.keepOneAction">
        <source>At least one action has to stay on.</source>
        <translation>少なくとも 1 つの動作をオンにしておく必要があります。</translation>
    </message>
    <message id="settings.general.chooseTitle">
        <source>Choose a folder for captures</source>
        <translation>キャプチャの保存先フォルダーを選択</translation>
    </message>
    <message id="settings.general.showEditor">
        <source>Open in the editor</source>
        <translation>エディターで開く</translation>
    </message>
    <message id="settings.general.copy">
        <source>Copy to the clipboard</source>
        <translation>クリップボードにコピー</translation>
    </message>
    <message id="settings.general.save">
        <source>Save as a file</source>
        <translation>ファイルとして保存</translation>
    </message>
    <message id="settings.general.pin">
        <source>Pin to the screen</source>
        <translation>画面にピン留め</translation>
    </message>
    <message id="settings.general.showEditorHelp">
        <source>In the editor, ready to be annotated.</source>
        <translation>エディターに表示し、すぐに注釈を付けられます。</translation>
    </message>
    <message id="settings.general.copyHelp">
        <source>Ready to be pasted into another program.</source>
        <translation>ほかのアプリケーションにすぐに貼り付けられます。</translation>
    </message>
    <message id="settings.general.saveHelp">
        <source>As a PNG picture in the folder below.</source>
        <translation>下のフォルダーに PNG 画像として保存します。</translation>
    </message>
    <message id="settings.general.pinHelp">
        <source>It stays above all windows. Takes the place of the editor.</source>
        <translation>すべてのウィンドウより手前に表示します。エディターは開きません。</translation>
    </message>
    <message id="settings.clipboard.fileAndImage">
        <source>File and picture</source>
        <translation>ファイルと画像</translation>
    </message>
    <message id="settings.clipboard.fileOnly">
        <source>File only</source>
        <translation>ファイルのみ</translation>
    </message>
    <message id="settings.clipboard.imageOnly">
        <source>Picture only</source>
        <translation>画像のみ</translation>
    </message>
    <message id="settings.shortcuts.title">
        <source>Shortcuts</source>
        <translation>ショートカット</translation>
    </message>
    <message id="settings.title">
        <source>Vellora Settings</source>
        <translation>Vellora の設定</translation>
    </message>
    <message id="settings.pages">
        <source>Settings pages</source>
        <translation>設定ページ</translation>
    </message>
    <message id="shortcut.recording">
        <source>Press the keys…</source>
        <translation>キーを押してください…</translation>
    </message>
    <message id="shortcut.recordingHelp">
        <source>Press the new combination. Esc stops, Delete goes back to the default.</source>
        <translation>新しい組み合わせを押してください。Esc キーで中止、Delete キーで既定値に戻します。</translation>
    </message>
    <message id="shortcut.none">
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message id="shortcut.startHelp">
        <source>Click to record another combination</source>
        <translation>クリックして別の組み合わせを設定</translation>
    </message>
    <message id="settings.shortcuts.conflict">
        <source>%1 already belongs to “%2”.</source>
        <translation>%1 はすでに「%2」に割り当てられています。</translation>
    </message>
    <message id="settings.shortcuts.group">
        <source>Global shortcuts</source>
        <translation>グローバルショートカット</translation>
    </message>
    <message id="settings.shortcuts.info">
        <source>They work in every program. Click a shortcut and press the new combination: with Ctrl, Alt or Super, or a function key alone.</source>
        <oldsource>They work in every program. Click a shortcut, then press the new combination: with Ctrl, Alt or Super, or a
</oldsource>
        <translation>すべてのアプリケーションで使用できます。ショートカットをクリックし、新しい組み合わせを押してください。Ctrl、Alt、Super のいずれかを含む組み合わせか、ファンクションキー単独を使用できます。</translation>
    </message>
    <message id="shortcut.reset">
        <source>Back to the default</source>
        <translation>既定値に戻す</translation>
    </message>
    <message id="settings.shortcuts.heldElsewhere">
        <source>Another program holds %1. Choose another combination, or free it there.</source>
        <translation>%1 はほかのアプリケーションで使用されています。別の組み合わせを選ぶか、そのアプリケーションで割り当てを解除してください。</translation>
    </message>
    <message id="settings.shortcuts.fnHint">
        <source>If the F-keys of this keyboard do something else, hold Fn as well.</source>
        <translation>このキーボードの F キーにほかの機能が割り当てられている場合は、Fn キーも同時に押してください。</translation>
    </message>
    <message id="menu.captureArea">
        <source>Capture Area</source>
        <translation>範囲をキャプチャ</translation>
    </message>
    <message id="menu.captureWindow">
        <source>Capture Window</source>
        <translation>ウィンドウをキャプチャ</translation>
    </message>
    <message id="menu.captureFullscreen">
        <source>Capture Full Screen</source>
        <translation>画面全体をキャプチャ</translation>
    </message>
    <message id="menu.captureScrolling">
        <source>Capture Scrolling Page</source>
        <translation>スクロールキャプチャ</translation>
    </message>
    <message id="menu.captureText">
        <source>Capture Text</source>
        <translation>テキストをキャプチャ</translation>
    </message>
    <message id="menu.moreCaptures">
        <source>More Captures</source>
        <translation>その他のキャプチャ</translation>
    </message>
    <message id="menu.captureElement">
        <source>Capture Element</source>
        <translation>要素をキャプチャ</translation>
    </message>
    <message id="menu.captureAreaSized">
        <source>Capture Fixed Size…</source>
        <translation>固定サイズでキャプチャ…</translation>
    </message>
    <message id="menu.captureFullscreenDelayed">
        <source>Capture Full Screen in 3 Seconds</source>
        <translation>3 秒後に画面全体をキャプチャ</translation>
    </message>
    <message id="menu.loadFromClipboard">
        <source>Load from Clipboard</source>
        <translation>クリップボードから読み込む</translation>
    </message>
    <message id="menu.loadFromFile">
        <source>Load from File…</source>
        <translation>ファイルから読み込む…</translation>
    </message>
    <message id="menu.reopen">
        <source>Reopen Last Capture</source>
        <translation>最後のキャプチャを開く</translation>
    </message>
    <message id="menu.reopenMore">
        <source>Recent Captures</source>
        <translation>最近のキャプチャ</translation>
    </message>
    <message id="menu.clearHistory">
        <source>Clear History…</source>
        <translation>履歴を消去…</translation>
    </message>
    <message id="menu.compressImages">
        <source>Compress Images…</source>
        <translation>画像を圧縮…</translation>
    </message>
    <message id="menu.recordRegion">
        <source>Record Area</source>
        <translation>範囲を録画</translation>
    </message>
    <message id="menu.stopRecording">
        <source>Stop Recording</source>
        <translation>録画を停止</translation>
    </message>
    <message id="menu.pauseRecording">
        <source>Pause Recording</source>
        <translation>録画を一時停止</translation>
    </message>
    <message id="menu.resumeRecording">
        <source>Resume Recording</source>
        <translation>録画を再開</translation>
    </message>
    <message id="menu.recordWindow">
        <source>Record Window</source>
        <translation>ウィンドウを録画</translation>
    </message>
    <message id="menu.recordFullscreen">
        <source>Record Full Screen</source>
        <translation>画面全体を録画</translation>
    </message>
    <message id="menu.recentRecordings">
        <source>Recent Recordings</source>
        <translation>最近の録画</translation>
    </message>
    <message id="menu.openRecordingsFolder">
        <source>Open Recordings Folder</source>
        <translation>録画フォルダーを開く</translation>
    </message>
    <message id="menu.cleanupRecordings">
        <source>Clean Up Recordings…</source>
        <translation>録画を整理…</translation>
    </message>
    <message id="menu.importVideo">
        <source>Import Video…</source>
        <translation>動画をインポート…</translation>
    </message>
    <message id="menu.startLive">
        <source>Go Live…</source>
        <translation>ライブ配信を開始…</translation>
    </message>
    <message id="menu.stopLive">
        <source>Stop Live</source>
        <translation>ライブ配信を終了</translation>
    </message>
    <message id="menu.settings">
        <source>Settings…</source>
        <translation>設定…</translation>
    </message>
    <message id="menu.quit">
        <source>Quit Vellora</source>
        <translation>Vellora を終了</translation>
    </message>
    <message id="toast.copiedAndSavedTo">
        <source>Copied and saved to %1</source>
        <translation>コピーして %1 に保存しました</translation>
    </message>
    <message id="toast.copied">
        <source>Copied</source>
        <translation>コピーしました</translation>
    </message>
    <message id="toast.savedTo">
        <source>Saved to %1</source>
        <translation>%1 に保存しました</translation>
    </message>
    <message id="toast.captureOutputFailed">
        <source>Copying or saving failed; the capture is kept in the history</source>
        <translation>コピーまたは保存に失敗しました。キャプチャは履歴に残っています</translation>
    </message>
    <message id="toast.saveFailed">
        <source>Saving to %1 failed; the capture is kept in the history</source>
        <translation>%1 に保存できませんでした。キャプチャは履歴に残っています</translation>
    </message>
    <message id="countdown.help">
        <source>Capture in a moment. Click or press Escape to cancel.</source>
        <translation>まもなくキャプチャします。中止するにはクリックするか Esc キーを押してください。</translation>
    </message>
    <message id="countdown.name">
        <source>Countdown</source>
        <translation>カウントダウン</translation>
    </message>
    <message id="overlay.badge.scaledSize">
        <source>%1 px  ·  %2 × %3 pt</source>
        <translation>%1 px  ·  %2 × %3 pt</translation>
    </message>
    <message id="overlay.hint.area">
        <source>Drag an area or click a window  ·  Space from the keyboard  ·  Esc cancels</source>
        <translation>ドラッグで範囲、クリックでウィンドウを選択  ·  スペース：キーボードで選択  ·  Esc：キャンセル</translation>
    </message>
    <message id="overlay.hint.text">
        <source>Drag over the text to read  ·  Esc cancels</source>
        <translation>読み取るテキストをドラッグで囲む  ·  Esc：キャンセル</translation>
    </message>
    <message id="overlay.hint.scrolling">
        <source>Drag over the part that scrolls  ·  Esc cancels</source>
        <translation>スクロールする部分をドラッグで囲む  ·  Esc：キャンセル</translation>
    </message>
    <message id="overlay.hint.recording">
        <source>Drag the area to record or click a window  ·  Esc cancels</source>
        <translation>ドラッグで録画範囲、クリックでウィンドウを選択  ·  Esc：キャンセル</translation>
    </message>
    <message id="overlay.hint.adjust">
        <source>Drag the handles or use the arrow keys  ·  Return takes it  ·  Esc starts over</source>
        <translation>ハンドルをドラッグするか矢印キーで調整  ·  Enter：確定  ·  Esc：やり直す</translation>
    </message>
    <message id="overlay.hint.window">
        <source>Click a window  ·  Tab goes through them  ·  Esc cancels</source>
        <translation>ウィンドウをクリック  ·  Tab：次のウィンドウ  ·  Esc：キャンセル</translation>
    </message>
    <message id="history.yesterday">
        <source>Yesterday</source>
        <translation>昨日</translation>
    </message>
    <message id="load.error.notFound">
        <source>The file does not exist</source>
        <translation>ファイルが存在しません</translation>
    </message>
    <message id="load.error.notPermitted">
        <source>You may not read this file</source>
        <translation>このファイルを読み取る権限がありません</translation>
    </message>
    <message id="load.error.notAFile">
        <source>This is not a file</source>
        <translation>これはファイルではありません</translation>
    </message>
    <message id="load.error.tooLarge">
        <source>The picture is too large</source>
        <translation>画像が大きすぎます</translation>
    </message>
    <message id="load.error.notAnImage">
        <source>This is not a picture Vellora can read</source>
        <translation>Vellora で読み込める画像ではありません</translation>
    </message>
    <message id="load.error.unsupported">
        <source>This kind of picture cannot be read</source>
        <translation>この種類の画像は読み込めません</translation>
    </message>
    <message id="load.error.outOfMemory">
        <source>There is not enough memory for the picture</source>
        <translation>メモリが不足しているため、画像を読み込めません</translation>
    </message>
    <message id="load.error.damaged">
        <source>The picture is damaged</source>
        <translation>画像が破損しています</translation>
    </message>
    <message id="capture.error.windowGone">
        <source>The window is gone</source>
        <translation>ウィンドウがなくなりました</translation>
    </message>
    <message id="capture.error.cropFailed">
        <source>Nothing of that area is on the screen any more</source>
        <translation>選択した範囲は画面上に残っていません</translation>
    </message>
    <message id="capture.error.noDisplay">
        <source>The screen is not there any more</source>
        <translation>ディスプレイが見つからなくなりました</translation>
    </message>
    <message id="capture.error.failed">
        <source>The screen cannot be captured</source>
        <translation>画面をキャプチャできません</translation>
    </message>
    <message id="toast.waylandSession">
        <source>This is a Wayland session: for now Vellora sees only programs that use X11</source>
        <translation>これは Wayland セッションです。現時点では、Vellora が扱えるのは X11 を使用するアプリケーションのみです</translation>
    </message>
    <message id="toast.recovered" numerus="yes">
        <source>%n capture(s) that were open when Vellora ended are in the history</source>
        <translation>
            <numerusform>Vellora の終了時に開いていた %n 件のキャプチャを履歴に残しました</numerusform>
        </translation>
    </message>
    <message id="toast.pinFailed">
        <source>This picture cannot be pinned</source>
        <translation>この画像はピン留めできません</translation>
    </message>
    <message id="menu.endClickThrough">
        <source>Let Clicks Reach the Pins Again</source>
        <translation>ピン留めのクリック透過を解除</translation>
    </message>
    <message id="backdrop.frame.browserLight">
        <source>Browser window, light</source>
        <translation>ブラウザーウィンドウ（ライト）</translation>
    </message>
    <message id="backdrop.frame.laptopLight">
        <source>Laptop, light</source>
        <translation>ノート PC（ライト）</translation>
    </message>
    <message id="backdrop.frame.phoneLight">
        <source>Phone, light</source>
        <translation>スマートフォン（ライト）</translation>
    </message>
    <message id="backdrop.frame.browserDark">
        <source>Browser window, dark</source>
        <translation>ブラウザーウィンドウ（ダーク）</translation>
    </message>
    <message id="backdrop.frame.laptopDark">
        <source>Laptop, dark</source>
        <translation>ノート PC（ダーク）</translation>
    </message>
    <message id="backdrop.frame.phoneDark">
        <source>Phone, dark</source>
        <translation>スマートフォン（ダーク）</translation>
    </message>
    <message id="backdrop.title">
        <source>Backdrop</source>
        <translation>背景</translation>
    </message>
    <message id="backdrop.reset">
        <source>Back to the default backdrop</source>
        <translation>既定の背景に戻す</translation>
    </message>
    <message id="backdrop.enabled">
        <source>Show the backdrop</source>
        <translation>背景を表示</translation>
    </message>
    <message id="backdrop.layout">
        <source>Layout</source>
        <translation>レイアウト</translation>
    </message>
    <message id="backdrop.layout.margin">
        <source>Margin</source>
        <translation>余白</translation>
    </message>
    <message id="backdrop.layout.radius">
        <source>Corner radius</source>
        <translation>角の丸み</translation>
    </message>
    <message id="backdrop.layout.shadow">
        <source>Shadow</source>
        <translation>影</translation>
    </message>
    <message id="backdrop.aspect">
        <source>Aspect ratio</source>
        <translation>縦横比</translation>
    </message>
    <message id="backdrop.aspect.auto">
        <source>Auto</source>
        <translation>自動</translation>
    </message>
    <message id="backdrop.frame">
        <source>Frame</source>
        <translation>フレーム</translation>
    </message>
    <message id="backdrop.frame.none">
        <source>No frame</source>
        <translation>フレームなし</translation>
    </message>
    <message id="backdrop.placement">
        <source>Placement</source>
        <translation>配置</translation>
    </message>
    <message id="backdrop.tiltX">
        <source>Tilt sideways</source>
        <translation>左右の傾き</translation>
    </message>
    <message id="backdrop.tiltY">
        <source>Tilt up and down</source>
        <translation>上下の傾き</translation>
    </message>
    <message id="backdrop.rotation">
        <source>Rotation</source>
        <translation>回転</translation>
    </message>
    <message id="backdrop.contentScale">
        <source>Size</source>
        <translation>サイズ</translation>
    </message>
    <message id="backdrop.contentOffset">
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message id="backdrop.effects">
        <source>Effects</source>
        <translation>効果</translation>
    </message>
    <message id="backdrop.glow">
        <source>Glow</source>
        <translation>グロー</translation>
    </message>
    <message id="backdrop.glowCenter">
        <source>Center of the glow</source>
        <translation>グローの中心</translation>
    </message>
    <message id="backdrop.grain">
        <source>Grain</source>
        <translation>粒状感</translation>
    </message>
    <message id="backdrop.edgeBlur">
        <source>Edge blur</source>
        <translation>端のぼかし</translation>
    </message>
    <message id="backdrop.edgeBlur.none">
        <source>No edge blur</source>
        <translation>端をぼかさない</translation>
    </message>
    <message id="backdrop.edgeBlur.bottom">
        <source>Blur the bottom</source>
        <translation>下端をぼかす</translation>
    </message>
    <message id="backdrop.edgeBlur.left">
        <source>Blur the left</source>
        <translation>左端をぼかす</translation>
    </message>
    <message id="backdrop.edgeBlur.right">
        <source>Blur the right</source>
        <translation>右端をぼかす</translation>
    </message>
    <message id="backdrop.edgeBlur.all">
        <source>Blur all edges</source>
        <translation>すべての端をぼかす</translation>
    </message>
    <message id="backdrop.curated.arc">
        <source>Arc</source>
        <translation>アーク</translation>
    </message>
    <message id="backdrop.curated.haze">
        <source>Haze</source>
        <translation>かすみ</translation>
    </message>
    <message id="backdrop.curated.lavender">
        <source>Lavender</source>
        <translation>ラベンダー</translation>
    </message>
    <message id="backdrop.curated.ember">
        <source>Ember</source>
        <translation>残り火</translation>
    </message>
    <message id="backdrop.curated.moss">
        <source>Moss</source>
        <translation>苔</translation>
    </message>
    <message id="backdrop.curated.lagoon">
        <source>Lagoon</source>
        <translation>ラグーン</translation>
    </message>
    <message id="backdrop.curated.sky">
        <source>Sky</source>
        <translation>空</translation>
    </message>
    <message id="backdrop.gradient.dawn">
        <source>Dawn</source>
        <translation>夜明け</translation>
    </message>
    <message id="backdrop.gradient.peach">
        <source>Peach</source>
        <translation>ピーチ</translation>
    </message>
    <message id="backdrop.gradient.coral">
        <source>Coral</source>
        <translation>コーラル</translation>
    </message>
    <message id="backdrop.gradient.dusk">
        <source>Dusk</source>
        <translation>夕暮れ</translation>
    </message>
    <message id="backdrop.gradient.iris">
        <source>Iris</source>
        <translation>アイリス</translation>
    </message>
    <message id="backdrop.gradient.indigo">
        <source>Indigo</source>
        <translation>インディゴ</translation>
    </message>
    <message id="backdrop.gradient.ocean">
        <source>Ocean</source>
        <translation>海</translation>
    </message>
    <message id="backdrop.gradient.mist">
        <source>Mist</source>
        <translation>霧</translation>
    </message>
    <message id="backdrop.gradient.mint">
        <source>Mint</source>
        <translation>ミント</translation>
    </message>
    <message id="backdrop.gradient.forest">
        <source>Forest</source>
        <translation>森</translation>
    </message>
    <message id="backdrop.gradient.slate">
        <source>Slate</source>
        <translation>スレート</translation>
    </message>
    <message id="backdrop.gradient.night">
        <source>Night</source>
        <translation>夜</translation>
    </message>
    <message id="backdrop.color.white">
        <source>White</source>
        <translation>白</translation>
    </message>
    <message id="backdrop.color.gray">
        <source>Gray</source>
        <translation>グレー</translation>
    </message>
    <message id="backdrop.color.black">
        <source>Black</source>
        <translation>黒</translation>
    </message>
    <message id="backdrop.color.blue">
        <source>Blue</source>
        <translation>青</translation>
    </message>
    <message id="backdrop.color.purple">
        <source>Purple</source>
        <translation>紫</translation>
    </message>
    <message id="backdrop.color.pink">
        <source>Pink</source>
        <translation>ピンク</translation>
    </message>
    <message id="backdrop.color.red">
        <source>Red</source>
        <translation>赤</translation>
    </message>
    <message id="backdrop.color.orange">
        <source>Orange</source>
        <translation>オレンジ</translation>
    </message>
    <message id="backdrop.color.green">
        <source>Green</source>
        <translation>緑</translation>
    </message>
    <message id="backdrop.color.teal">
        <source>Teal</source>
        <translation>青緑</translation>
    </message>
    <message id="backdrop.background">
        <source>Background</source>
        <translation>背景の塗り</translation>
    </message>
    <message id="backdrop.ownPicture">
        <source>A picture of your own…</source>
        <translation>画像を選択…</translation>
    </message>
    <message id="backdrop.ownColor">
        <source>Another color…</source>
        <translation>その他の色…</translation>
    </message>
    <message id="backdrop.ownPicture.title">
        <source>Choose a background picture</source>
        <translation>背景画像を選択</translation>
    </message>
    <message id="backdrop.ownPicture.filter">
        <source>Pictures</source>
        <translation>画像</translation>
    </message>
    <message id="backdrop.gradient.stops">
        <source>Colors of the gradient</source>
        <translation>グラデーションの色</translation>
    </message>
    <message id="backdrop.gradient.stopsHelp">
        <source>Drag a color to move it, away to remove it; click to add one</source>
        <translation>ドラッグで色を移動、外へドラッグで削除、クリックで追加</translation>
    </message>
    <message id="backdrop.gradient.color">
        <source>Color of the stop</source>
        <translation>分岐点の色</translation>
    </message>
    <message id="backdrop.gradient.add">
        <source>Add a color</source>
        <translation>色を追加</translation>
    </message>
    <message id="backdrop.gradient.remove">
        <source>Remove the color</source>
        <translation>色を削除</translation>
    </message>
    <message id="backdrop.gradient.reverse">
        <source>Turn the gradient round</source>
        <translation>グラデーションを反転</translation>
    </message>
    <message id="backdrop.gradient.angle">
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message id="backdrop.styles">
        <source>Saved styles</source>
        <translation>保存済みのスタイル</translation>
    </message>
    <message id="backdrop.styles.save">
        <source>Save this style…</source>
        <translation>このスタイルを保存…</translation>
    </message>
    <message id="backdrop.styles.suggestion">
        <source>Style %1</source>
        <translation>スタイル %1</translation>
    </message>
    <message id="backdrop.styles.help">
        <source>Click applies the style; a right click renames, renews or deletes it</source>
        <translation>クリックで適用、右クリックで名前の変更・更新・削除</translation>
    </message>
    <message id="backdrop.styles.rename">
        <source>Rename…</source>
        <translation>名前を変更…</translation>
    </message>
    <message id="backdrop.styles.renameAction">
        <source>Rename</source>
        <translation>名前を変更</translation>
    </message>
    <message id="backdrop.styles.update">
        <source>Replace with the current backdrop</source>
        <translation>現在の背景で置き換え</translation>
    </message>
    <message id="backdrop.styles.delete">
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message id="backdrop.styles.name">
        <source>Name of the style</source>
        <translation>スタイルの名前</translation>
    </message>
    <message id="backdrop.styles.accept">
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message id="canvas.hint.drawLine">
        <source>Drag to draw  ·  Shift keeps to steps of 45°</source>
        <translation>ドラッグで描画  ·  Shift：45° 刻み</translation>
    </message>
    <message id="canvas.hint.drawShape">
        <source>Drag to draw  ·  Shift makes it even, Alt starts from the center</source>
        <translation>ドラッグで描画  ·  Shift：縦横を同じ長さに  ·  Alt：中心から</translation>
    </message>
    <message id="canvas.hint.blur">
        <source>Drag over what should not be read</source>
        <translation>読まれたくない部分をドラッグで囲む</translation>
    </message>
    <message id="canvas.hint.magnifier">
        <source>Drag a lens over what should be larger</source>
        <translation>拡大する部分をドラッグで囲む</translation>
    </message>
    <message id="canvas.hint.pen">
        <source>Drag to draw freehand</source>
        <translation>ドラッグで自由に描画</translation>
    </message>
    <message id="canvas.hint.counter">
        <source>Click to place the next number, drag to point it</source>
        <translation>クリックで次の番号を配置、ドラッグで向きを指定</translation>
    </message>
    <message id="canvas.hint.text">
        <source>Click to type, drag for a width</source>
        <translation>クリックで入力、ドラッグで幅を指定</translation>
    </message>
    <message id="canvas.hint.cropping">
        <source>Drag the edges to crop  ·  Return takes it  ·  Esc leaves</source>
        <translation>端をドラッグして切り抜き  ·  Enter：確定  ·  Esc：終了</translation>
    </message>
    <message id="canvas.hint.select">
        <source>Click to select, drag to select several</source>
        <translation>クリックで選択、ドラッグで複数選択</translation>
    </message>
    <message id="canvas.hint.move">
        <source>Drag to move  ·  the arrow keys nudge</source>
        <translation>ドラッグで移動  ·  矢印キー：微調整</translation>
    </message>
    <message id="canvas.hint.crop">
        <source>Drag to crop</source>
        <translation>ドラッグで切り抜き</translation>
    </message>
    <message id="canvas.hint.resize">
        <source>Drag to resize  ·  Shift keeps it even, Alt keeps the center</source>
        <translation>ドラッグでサイズ変更  ·  Shift：縦横比を固定  ·  Alt：中心を固定</translation>
    </message>
    <message id="canvas.hint.movePoint">
        <source>Drag to move this point</source>
        <translation>ドラッグでこの点を移動</translation>
    </message>
    <message id="canvas.hint.turn">
        <source>Drag to turn</source>
        <translation>ドラッグで回転</translation>
    </message>
    <message id="canvas.hint.editText">
        <source>Click to place the cursor, drag to select text</source>
        <translation>クリックでカーソルを配置、ドラッグでテキストを選択</translation>
    </message>
    <message id="canvas.description" numerus="yes">
        <source>Picture of %1 pixels with %n annotation(s)</source>
        <translation>
            <numerusform>%1 ピクセルの画像、注釈 %n 個</numerusform>
        </translation>
    </message>
    <message id="canvas.description.selected" numerus="yes">
        <source>%n selected</source>
        <translation>
            <numerusform>%n 個選択中</numerusform>
        </translation>
    </message>
    <message id="canvas.name">
        <source>Canvas</source>
        <translation>キャンバス</translation>
    </message>
    <message id="canvas.hint.eyedropper">
        <source>Click to take the color  ·  Esc leaves</source>
        <translation>クリックで色を取得  ·  Esc：終了</translation>
    </message>
    <message id="canvas.hint.pan">
        <source>Drag to move the view</source>
        <translation>ドラッグで表示位置を移動</translation>
    </message>
    <message id="color.red">
        <source>Red</source>
        <translation>赤</translation>
    </message>
    <message id="color.orange">
        <source>Orange</source>
        <translation>オレンジ</translation>
    </message>
    <message id="color.yellow">
        <source>Yellow</source>
        <translation>黄</translation>
    </message>
    <message id="color.green">
        <source>Green</source>
        <translation>緑</translation>
    </message>
    <message id="color.blue">
        <source>Blue</source>
        <translation>青</translation>
    </message>
    <message id="color.violet">
        <source>Violet</source>
        <translation>紫</translation>
    </message>
    <message id="color.pink">
        <source>Pink</source>
        <translation>ピンク</translation>
    </message>
    <message id="color.slate">
        <source>Slate</source>
        <translation>スレート</translation>
    </message>
    <message id="editor.color">
        <source>Color</source>
        <translation>色</translation>
    </message>
    <message id="editor.swatch.delete">
        <source>Delete Color</source>
        <translation>色を削除</translation>
    </message>
    <message id="editor.swatch.add">
        <source>Add a color of your own</source>
        <translation>カスタムカラーを追加</translation>
    </message>
    <message id="editor.swatch.tooltip">
        <source>Your color %1 (double click to edit)</source>
        <translation>カスタムカラー %1（ダブルクリックで編集）</translation>
    </message>
    <message id="editor.swatch.edit">
        <source>Edit Color…</source>
        <translation>色を編集…</translation>
    </message>
    <message id="editor.failed.render">
        <source>The picture is too large to be made.</source>
        <translation>画像が大きすぎるため、作成できません。</translation>
    </message>
    <message id="editor.failed.encode">
        <source>The picture does not fit this format. PNG holds it.</source>
        <translation>画像がこの形式の上限を超えています。PNG なら保存できます。</translation>
    </message>
    <message id="editor.failed.write">
        <source>The file could not be written.</source>
        <translation>ファイルに書き込めませんでした。</translation>
    </message>
    <message id="editor.progress.copy">
        <source>Copying…</source>
        <translation>コピー中…</translation>
    </message>
    <message id="editor.progress.save">
        <source>Saving…</source>
        <translation>保存中…</translation>
    </message>
    <message id="editor.saveAs.title">
        <source>Save the picture as</source>
        <translation>画像に名前を付けて保存</translation>
    </message>
    <message id="editor.saved">
        <source>Saved %1</source>
        <translation>%1 を保存しました</translation>
    </message>
    <message id="editor.progress.print">
        <source>Printing…</source>
        <translation>印刷中…</translation>
    </message>
    <message id="editor.bar">
        <source>Tools and style</source>
        <translation>ツールとスタイル</translation>
    </message>
    <message id="editor.moreTools">
        <source>More tools</source>
        <translation>その他のツール</translation>
    </message>
    <message id="editor.dragOut">
        <source>Drag the picture into another program</source>
        <translation>画像をほかのアプリケーションにドラッグ</translation>
    </message>
    <message id="editor.copy.outdated">
        <source>%1: the clipboard holds an older state</source>
        <translation>%1：クリップボードの内容は変更前のものです</translation>
    </message>
    <message id="tool.select">
        <source>Select</source>
        <translation>選択</translation>
    </message>
    <message id="tool.arrow">
        <source>Arrow</source>
        <translation>矢印</translation>
    </message>
    <message id="tool.rectangle">
        <source>Rectangle</source>
        <translation>長方形</translation>
    </message>
    <message id="tool.ellipse">
        <source>Ellipse</source>
        <translation>楕円</translation>
    </message>
    <message id="tool.line">
        <source>Line</source>
        <translation>直線</translation>
    </message>
    <message id="tool.pen">
        <source>Pen</source>
        <translation>ペン</translation>
    </message>
    <message id="tool.text">
        <source>Text</source>
        <translation>テキスト</translation>
    </message>
    <message id="tool.counter">
        <source>Counter</source>
        <translation>番号</translation>
    </message>
    <message id="tool.pixelate">
        <source>Pixelate</source>
        <translation>モザイク</translation>
    </message>
    <message id="tool.magnifier">
        <source>Magnifier</source>
        <translation>拡大鏡</translation>
    </message>
    <message id="editor.crop">
        <source>Crop</source>
        <translation>切り抜き</translation>
    </message>
    <message id="editor.thinner">
        <source>Thinner</source>
        <translation>細く</translation>
    </message>
    <message id="editor.thicker">
        <source>Thicker</source>
        <translation>太く</translation>
    </message>
    <message id="editor.sketch">
        <source>Hand-Drawn</source>
        <translation>手描き風</translation>
    </message>
    <message id="editor.fill">
        <source>Fill</source>
        <translation>塗りつぶし</translation>
    </message>
    <message id="editor.nextBlurStyle">
        <source>Next Way to Pixelate</source>
        <translation>隠し方を切り替え</translation>
    </message>
    <message id="editor.pickColor">
        <source>Pick Color from Screen</source>
        <translation>画面から色を取得</translation>
    </message>
    <message id="editor.undo">
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message id="editor.redo">
        <source>Redo</source>
        <translation>やり直す</translation>
    </message>
    <message id="editor.cut">
        <source>Cut</source>
        <translation>切り取り</translation>
    </message>
    <message id="editor.copy">
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message id="editor.paste">
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message id="editor.duplicate">
        <source>Duplicate</source>
        <translation>複製</translation>
    </message>
    <message id="editor.delete">
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message id="editor.selectAll">
        <source>Select All</source>
        <translation>すべて選択</translation>
    </message>
    <message id="editor.bringForward">
        <source>Bring Forward</source>
        <translation>前面へ移動</translation>
    </message>
    <message id="editor.sendBackward">
        <source>Send Backward</source>
        <translation>背面へ移動</translation>
    </message>
    <message id="editor.bringToFront">
        <source>Bring to Front</source>
        <translation>最前面へ移動</translation>
    </message>
    <message id="editor.sendToBack">
        <source>Send to Back</source>
        <translation>最背面へ移動</translation>
    </message>
    <message id="editor.alignLeft">
        <source>Align Left Edges</source>
        <translation>左揃え</translation>
    </message>
    <message id="editor.alignCenter">
        <source>Align Centers Horizontally</source>
        <translation>左右中央揃え</translation>
    </message>
    <message id="editor.alignRight">
        <source>Align Right Edges</source>
        <translation>右揃え</translation>
    </message>
    <message id="editor.alignTop">
        <source>Align Top Edges</source>
        <translation>上揃え</translation>
    </message>
    <message id="editor.alignMiddle">
        <source>Align Centers Vertically</source>
        <translation>上下中央揃え</translation>
    </message>
    <message id="editor.alignBottom">
        <source>Align Bottom Edges</source>
        <translation>下揃え</translation>
    </message>
    <message id="editor.distributeHorizontally">
        <source>Distribute Horizontally</source>
        <translation>左右に等間隔で配置</translation>
    </message>
    <message id="editor.distributeVertically">
        <source>Distribute Vertically</source>
        <translation>上下に等間隔で配置</translation>
    </message>
    <message id="editor.resetCrop">
        <source>Reset Crop</source>
        <translation>切り抜きをリセット</translation>
    </message>
    <message id="editor.addCapture">
        <source>Add Capture</source>
        <translation>キャプチャを追加</translation>
    </message>
    <message id="editor.addPicture">
        <source>Add Picture…</source>
        <translation>画像を追加…</translation>
    </message>
    <message id="editor.backdrop">
        <source>Backdrop</source>
        <translation>背景</translation>
    </message>
    <message id="editor.copyPicture">
        <source>Copy Picture</source>
        <translation>画像をコピー</translation>
    </message>
    <message id="editor.save">
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message id="editor.saveAs">
        <source>Save As…</source>
        <translation>名前を付けて保存…</translation>
    </message>
    <message id="editor.print">
        <source>Print…</source>
        <translation>印刷…</translation>
    </message>
    <message id="editor.pin">
        <source>Pin to Screen</source>
        <translation>画面にピン留め</translation>
    </message>
    <message id="editor.close">
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message id="editor.zoomIn">
        <source>Zoom In</source>
        <translation>拡大</translation>
    </message>
    <message id="editor.zoomOut">
        <source>Zoom Out</source>
        <translation>縮小</translation>
    </message>
    <message id="editor.zoomToFit">
        <source>Fit to Window</source>
        <translation>ウィンドウに合わせる</translation>
    </message>
    <message id="editor.actualSize">
        <source>Actual Size</source>
        <translation>実際のサイズ</translation>
    </message>
    <message id="editor.nextPart">
        <source>Next Part of the Window</source>
        <translation>ウィンドウの次の領域</translation>
    </message>
    <message id="editor.more">
        <source>More</source>
        <translation>その他</translation>
    </message>
    <message id="editor.shortcuts">
        <source>Keyboard Shortcuts</source>
        <translation>キーボードショートカット</translation>
    </message>
    <message id="editor.group.tools">
        <source>Tools</source>
        <translation>ツール</translation>
    </message>
    <message id="editor.group.style">
        <source>Style</source>
        <translation>スタイル</translation>
    </message>
    <message id="editor.group.edit">
        <source>Edit</source>
        <translation>編集</translation>
    </message>
    <message id="editor.group.arrange">
        <source>Arrange</source>
        <translation>配置</translation>
    </message>
    <message id="editor.group.picture">
        <source>Picture</source>
        <translation>画像</translation>
    </message>
    <message id="editor.group.view">
        <source>View</source>
        <translation>表示</translation>
    </message>
    <message id="editor.menu.order">
        <source>Order</source>
        <translation>重ね順</translation>
    </message>
    <message id="editor.menu.align">
        <source>Align</source>
        <translation>整列</translation>
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
        <translation>手描き風</translation>
    </message>
    <message id="editor.fillTooltip">
        <source>Filled</source>
        <translation>塗りつぶし</translation>
    </message>
    <message id="editor.textStyleTooltip">
        <source>Text on a filled box</source>
        <translation>塗りつぶした枠にテキストを表示</translation>
    </message>
    <message id="editor.textFontTooltip">
        <source>Handwriting</source>
        <translation>手書き文字</translation>
    </message>
    <message id="editor.blurStyle.hides">
        <source>Hides what is below it for good.</source>
        <translation>下にある内容を復元できないように隠します。</translation>
    </message>
    <message id="editor.blurStyle.mosaic">
        <source>Mosaic</source>
        <translation>ピクセル化</translation>
    </message>
    <message id="editor.blurStyle.erase">
        <source>Paint Over</source>
        <translation>べた塗り</translation>
    </message>
    <message id="editor.blurStyle.gaussian">
        <source>Blur</source>
        <translation>ぼかし</translation>
    </message>
    <message id="editor.blurStyle.gaussian.warning">
        <source>Decorates only: what is below can often be made readable again. Hide secrets with the other two.</source>
        <translation>装飾専用です。下にある内容は多くの場合、読み取れる状態に復元できます。機密情報を隠すには、ほかの 2 つを使用してください。</translation>
    </message>
    <message id="editor.blurStyleTooltip">
        <source>How it is hidden</source>
        <translation>隠し方</translation>
    </message>
    <message id="editor.blurFillColor">
        <source>Color it is painted over with</source>
        <translation>べた塗りの色</translation>
    </message>
    <message id="editor.blurFillColor.automatic">
        <source>Take the color from around it</source>
        <translation>周囲の色を使用</translation>
    </message>
    <message id="editor.blurStrength.gaussian">
        <source>Softness</source>
        <translation>ぼかしの強さ</translation>
    </message>
    <message id="editor.blurStrength.pixel">
        <source>Cell size</source>
        <translation>マス目の大きさ</translation>
    </message>
    <message id="editor.magnifierShape.circle">
        <source>Round</source>
        <translation>円形</translation>
    </message>
    <message id="editor.magnifierShape.roundedRect">
        <source>Rounded rectangle</source>
        <translation>角丸長方形</translation>
    </message>
    <message id="editor.magnifierShapeTooltip">
        <source>Shape of the lens</source>
        <translation>拡大鏡の形</translation>
    </message>
    <message id="editor.magnificationTooltip">
        <source>Magnification</source>
        <translation>倍率</translation>
    </message>
    <message id="editor.format.png">
        <source>PNG picture (*.png)</source>
        <translation>PNG 画像 (*.png)</translation>
    </message>
    <message id="editor.format.jpeg">
        <source>JPEG picture (*.jpg *.jpeg)</source>
        <translation>JPEG 画像 (*.jpg *.jpeg)</translation>
    </message>
    <message id="editor.format.webp">
        <source>WebP picture (*.webp)</source>
        <translation>WebP 画像 (*.webp)</translation>
    </message>
    <message id="editor.format.tiff">
        <source>TIFF picture (*.tiff *.tif)</source>
        <translation>TIFF 画像 (*.tiff *.tif)</translation>
    </message>
    <message id="editor.format.pdf">
        <source>PDF document (*.pdf)</source>
        <translation>PDF 文書 (*.pdf)</translation>
    </message>
    <message id="pin.zoom">
        <source>Zoom</source>
        <translation>ズーム</translation>
    </message>
    <message id="pin.zoom.hint">
        <source>0 for the picture&apos;s own size</source>
        <translation>0 キーで元のサイズ</translation>
    </message>
    <message id="pin.copy">
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message id="pin.copy.hint">
        <source>Ctrl+C; drag it into another program</source>
        <translation>Ctrl+C、またはほかのアプリケーションにドラッグ</translation>
    </message>
    <message id="pin.edit">
        <source>Edit</source>
        <translation>編集</translation>
    </message>
    <message id="pin.more">
        <source>More</source>
        <translation>その他</translation>
    </message>
    <message id="pin.close">
        <source>Close</source>
        <translation>閉じる</translation>
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
        <translation>影</translation>
    </message>
    <message id="pin.roundedCorners">
        <source>Rounded Corners</source>
        <translation>角を丸くする</translation>
    </message>
    <message id="pin.clickThrough">
        <source>Let Clicks Through</source>
        <translation>クリックを透過</translation>
    </message>
    <message id="pin.closeAll">
        <source>Close All Pins</source>
        <translation>すべてのピン留めを閉じる</translation>
    </message>
    <message id="pin.window">
        <source>Pinned picture</source>
        <translation>ピン留めした画像</translation>
    </message>
    <message id="pin.opacity.badge">
        <source>Opacity %1</source>
        <translation>不透明度 %1</translation>
    </message>
    <message id="pin.clickThrough.began">
        <source>Clicks now go through the pin. The Vellora menu ends this.</source>
        <translation>クリックがピン留めを透過するようになりました。Vellora のメニューから解除できます。</translation>
    </message>
    <message id="editor.shortcuts.lock">
        <source>Keep the Tool</source>
        <translation>ツールを固定</translation>
    </message>
    <message id="editor.shortcuts.doubleClick">
        <source>double click</source>
        <translation>ダブルクリック</translation>
    </message>
    <message id="editor.shortcuts.colors">
        <source>Colors</source>
        <translation>色</translation>
    </message>
    <message id="editor.shortcuts.pan">
        <source>Move the Picture</source>
        <translation>画像を移動</translation>
    </message>
    <message id="editor.shortcuts.space">
        <source>Space</source>
        <translation>スペース</translation>
    </message>
    <message id="editor.shortcuts.drag">
        <source>drag</source>
        <translation>ドラッグ</translation>
    </message>
    <message id="editor.cancel">
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message id="editor.zoom">
        <source>Zoom</source>
        <translation>ズーム</translation>
    </message>
    <message id="editor.moreStyle">
        <source>More of the style</source>
        <translation>その他のスタイル</translation>
    </message>
    <message id="editor.width">
        <source>Width</source>
        <translation>太さ</translation>
    </message>
    <message id="editor.width.preset">
        <source>Width %1</source>
        <translation>太さ %1</translation>
    </message>
    <message id="color.plane">
        <source>Saturation and brightness</source>
        <translation>彩度と明るさ</translation>
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
        <translation>16 進数の色コード</translation>
    </message>
    <message id="color.eyedropper">
        <source>Pick a color from the screen</source>
        <translation>画面から色を取得</translation>
    </message>
    <message id="editor.copiedSelection">
        <source>Copied the selection</source>
        <translation>選択項目をコピーしました</translation>
    </message>
    <message id="compress.compare.value">
        <source>%1 % before</source>
        <translation>変更前 %1 %</translation>
    </message>
    <message id="compress.compare.selectOne">
        <source>Select an image to compare it with its result</source>
        <translation>画像を選択すると結果と比較できます</translation>
    </message>
    <message id="compress.compare.before">
        <source>Before</source>
        <translation>変更前</translation>
    </message>
    <message id="compress.compare.after">
        <source>After</source>
        <translation>変更後</translation>
    </message>
    <message id="compress.compare.fit">
        <source>Show the whole picture</source>
        <translation>画像全体を表示</translation>
    </message>
    <message id="compress.compare.actual">
        <source>Show at 100 %</source>
        <translation>100 % で表示</translation>
    </message>
    <message id="compress.compare.zoom">
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message id="compress.compare.busy">
        <source>The result is being made</source>
        <translation>結果を作成しています</translation>
    </message>
    <message id="compress.compare.name">
        <source>Before and after</source>
        <translation>変更前と変更後</translation>
    </message>
    <message id="compress.compare.help">
        <source>The arrow keys move the divider. B shows only the picture before.</source>
        <translation>矢印キーで仕切りを動かします。B キーで変更前の画像だけを表示します。</translation>
    </message>
    <message id="compress.drop.hint">
        <source>Drop images or folders here</source>
        <translation>画像またはフォルダをここにドロップ</translation>
    </message>
    <message id="compress.drop.more">
        <source>or paste them with %1. Originals are never changed, and results are never larger.</source>
        <translation>または %1 で貼り付け。元のファイルは変更されず、結果が大きくなることもありません。</translation>
    </message>
    <message id="compress.drop.choose">
        <source>Choose Images…</source>
        <translation>画像を選択…</translation>
    </message>
    <message id="compress.cancel">
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message id="compress.cancelTip">
        <source>Stop compressing (Esc)</source>
        <translation>圧縮を中止 (Esc)</translation>
    </message>
    <message id="compress.actionOne">
        <source>Compress 1 Image</source>
        <translation>1 枚の画像を圧縮</translation>
    </message>
    <message id="compress.actionMany">
        <source>Compress %1 Images</source>
        <translation>%1 枚の画像を圧縮</translation>
    </message>
    <message id="compress.actionNone">
        <source>Compress</source>
        <translation>圧縮</translation>
    </message>
    <message id="compress.progress.count">
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message id="compress.toast.failed" numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n 件失敗</numerusform>
        </translation>
    </message>
    <message id="compress.row.keptTip">
        <source>Nothing smaller was found in this format and size</source>
        <translation>この形式とサイズでは、これより小さくなりませんでした</translation>
    </message>
    <message id="compress.row.resultTip">
        <source>Result: %1</source>
        <translation>結果: %1</translation>
    </message>
    <message id="compress.row.flattenedTip">
        <source>This format cannot be transparent: the background became white</source>
        <translation>この形式は透明を扱えないため、背景は白になりました</translation>
    </message>
    <message id="compress.command.retry">
        <source>Try Again</source>
        <translation>再試行</translation>
    </message>
    <message id="compress.command.reveal">
        <source>Show Result in Folder</source>
        <translation>結果をフォルダで表示</translation>
    </message>
    <message id="compress.command.remove">
        <source>Remove from List</source>
        <translation>リストから削除</translation>
    </message>
    <message id="compress.list">
        <source>Images</source>
        <translation>画像</translation>
    </message>
    <message id="compress.settingsTitle">
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message id="compress.label.format">
        <source>Format</source>
        <translation>形式</translation>
    </message>
    <message id="compress.format.original">
        <source>Original</source>
        <translation>元のまま</translation>
    </message>
    <message id="compress.format.originalTip">
        <source>Every image keeps its format</source>
        <translation>各画像の形式を保ちます</translation>
    </message>
    <message id="compress.format.jpegTip">
        <source>For photos; no transparency</source>
        <translation>写真向け。透明は扱えません</translation>
    </message>
    <message id="compress.format.pngTip">
        <source>Exact to the pixel; for screenshots and drawings</source>
        <translation>ピクセル単位で正確。スクリーンショットや図向け</translation>
    </message>
    <message id="compress.format.webpTip">
        <source>Smallest, for the web; keeps transparency</source>
        <translation>最小。ウェブ向けで透明も保ちます</translation>
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
        <translation>これらの形式では何も失われないため、品質は影響しません。</translation>
    </message>
    <message id="compress.label.resize">
        <source>Resize</source>
        <translation>サイズ変更</translation>
    </message>
    <message id="compress.resize.fixed">
        <source>%1 – at most %2 px</source>
        <translation>%1 – 最大 %2 px</translation>
    </message>
    <message id="compress.resize.off">
        <source>Off</source>
        <translation>オフ</translation>
    </message>
    <message id="compress.resize.custom">
        <source>Custom</source>
        <translation>カスタム</translation>
    </message>
    <message id="compress.resize.customTip">
        <source>Longest edge in pixels. Smaller images stay as they are.</source>
        <translation>長辺のピクセル数。これより小さい画像はそのままです。</translation>
    </message>
    <message id="compress.resize.pixels">
        <source>pixels</source>
        <translation>ピクセル</translation>
    </message>
    <message id="compress.label.output">
        <source>Save results</source>
        <translation>結果の保存先</translation>
    </message>
    <message id="compress.output.source">
        <source>Beside the originals</source>
        <translation>元のファイルと同じ場所</translation>
    </message>
    <message id="compress.output.custom">
        <source>In another folder</source>
        <translation>別のフォルダ</translation>
    </message>
    <message id="compress.output.choose">
        <source>Choose…</source>
        <translation>選択…</translation>
    </message>
    <message id="compress.output.chooseTitle">
        <source>Choose a folder for the results</source>
        <translation>結果を保存するフォルダを選択</translation>
    </message>
    <message id="compress.keepMetadata">
        <source>Keep metadata</source>
        <translation>メタデータを残す</translation>
    </message>
    <message id="compress.keepMetadataHelp">
        <source>Camera, place, author. Off: nobody learns where a photo was taken.</source>
        <translation>カメラ、場所、作者。オフにすると撮影場所は誰にも伝わりません。</translation>
    </message>
    <message id="compress.keepDates">
        <source>Keep dates</source>
        <translation>日付を残す</translation>
    </message>
    <message id="compress.keepDatesHelp">
        <source>Results get the file dates of their originals.</source>
        <translation>結果に元のファイルの日付を付けます。</translation>
    </message>
    <message id="compress.row.kept">
        <source>Kept as it was</source>
        <translation>そのまま</translation>
    </message>
    <message id="compress.row.metadataRemoved">
        <source>Only metadata removed</source>
        <translation>メタデータのみ削除</translation>
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
        <translation>%1% 削減</translation>
    </message>
    <message id="compress.row.larger">
        <source>%1% larger</source>
        <translation>%1% 増加</translation>
    </message>
    <message id="compress.row.pixels">
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message id="compress.progress.secondsLeft" numerus="yes">
        <source>%n second(s) left</source>
        <translation>
            <numerusform>残り %n 秒</numerusform>
        </translation>
    </message>
    <message id="compress.progress.minutesLeft" numerus="yes">
        <source>%n minute(s) left</source>
        <translation>
            <numerusform>残り %n 分</numerusform>
        </translation>
    </message>
    <message id="compress.failure.notFound">
        <source>The file is no longer there</source>
        <translation>ファイルがなくなりました</translation>
    </message>
    <message id="compress.failure.notPermitted">
        <source>You are not allowed to read or write here</source>
        <translation>ここを読み書きする権限がありません</translation>
    </message>
    <message id="compress.failure.notAFile">
        <source>This is not a file</source>
        <translation>ファイルではありません</translation>
    </message>
    <message id="compress.failure.notAPicture">
        <source>This is not an image</source>
        <translation>画像ではありません</translation>
    </message>
    <message id="compress.failure.tooLarge">
        <source>The image is too large</source>
        <translation>画像が大きすぎます</translation>
    </message>
    <message id="compress.failure.unsupported">
        <source>This kind of image is not supported</source>
        <translation>この種類の画像には対応していません</translation>
    </message>
    <message id="compress.failure.animated">
        <source>Animations and pages can only keep their format and size</source>
        <translation>アニメーションと複数ページは形式とサイズを変えられません</translation>
    </message>
    <message id="compress.failure.damaged">
        <source>The file is damaged</source>
        <translation>ファイルが壊れています</translation>
    </message>
    <message id="compress.failure.outOfMemory">
        <source>There is not enough memory</source>
        <translation>メモリが足りません</translation>
    </message>
    <message id="compress.failure.cannotEncode">
        <source>The image does not fit this format</source>
        <translation>この形式では表せない画像です</translation>
    </message>
    <message id="compress.failure.diskFull">
        <source>The disk is full</source>
        <translation>ディスクがいっぱいです</translation>
    </message>
    <message id="compress.failure.writeFailed">
        <source>The result could not be written</source>
        <translation>結果を書き込めませんでした</translation>
    </message>
    <message id="compress.row.cancelled">
        <source>Stopped</source>
        <translation>中止</translation>
    </message>
    <message id="compress.row.sizes">
        <source>%1 → %2</source>
        <translation>%1 → %2</translation>
    </message>
    <message id="compress.row.running">
        <source>Compressing…</source>
        <translation>圧縮中…</translation>
    </message>
    <message id="compress.row.same">
        <source>Same size</source>
        <translation>同じサイズ</translation>
    </message>
    <message id="compress.row.failed">
        <source>Failed</source>
        <translation>失敗</translation>
    </message>
    <message id="compress.badge.fullSize">
        <source>Full size</source>
        <translation>元のサイズ</translation>
    </message>
    <message id="compress.badge.maxEdge">
        <source>At most %1 px</source>
        <translation>最大 %1 px</translation>
    </message>
    <message id="compress.badge.sourceFolder">
        <source>Source folder</source>
        <translation>元のフォルダ</translation>
    </message>
    <message id="compress.title">
        <source>Compress Images</source>
        <translation>画像を圧縮</translation>
    </message>
    <message id="compress.command.addImages">
        <source>Add Images…</source>
        <translation>画像を追加…</translation>
    </message>
    <message id="compress.command.addFolder">
        <source>Add Folder…</source>
        <translation>フォルダを追加…</translation>
    </message>
    <message id="compress.command.paste">
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message id="compress.command.compare">
        <source>Compare Before and After</source>
        <translation>変更前後を比較</translation>
    </message>
    <message id="compress.command.clear">
        <source>Remove All</source>
        <translation>すべて削除</translation>
    </message>
    <message id="compress.command.settings">
        <source>Show or Hide Settings</source>
        <translation>設定の表示/非表示</translation>
    </message>
    <message id="compress.add">
        <source>Add</source>
        <translation>追加</translation>
    </message>
    <message id="compress.addTip">
        <source>Add images, folders, or captures</source>
        <translation>画像、フォルダ、キャプチャを追加</translation>
    </message>
    <message id="compress.key.space">
        <source>Space</source>
        <translation>スペース</translation>
    </message>
    <message id="compress.toast.nothingToPaste">
        <source>There is no image on the clipboard</source>
        <translation>クリップボードに画像がありません</translation>
    </message>
    <message id="compress.pastedName">
        <source>Pasted Image %1</source>
        <translation>貼り付けた画像 %1</translation>
    </message>
    <message id="compress.toast.nothingFound">
        <source>No new images were found there</source>
        <translation>そこに新しい画像は見つかりませんでした</translation>
    </message>
    <message id="compress.looking">
        <source>Looking for images…</source>
        <translation>画像を探しています…</translation>
    </message>
    <message id="compress.summary.count" numerus="yes">
        <source>%n image(s)</source>
        <translation>
            <numerusform>%n 枚の画像</numerusform>
        </translation>
    </message>
    <message id="compress.addImages.title">
        <source>Add images</source>
        <translation>画像を追加</translation>
    </message>
    <message id="compress.addImages.filter">
        <source>Images (%1)</source>
        <translation>画像 (%1)</translation>
    </message>
    <message id="compress.addImages.allFiles">
        <source>All files (*)</source>
        <translation>すべてのファイル (*)</translation>
    </message>
    <message id="compress.addFolder.title">
        <source>Add a folder of images</source>
        <translation>画像のフォルダを追加</translation>
    </message>
    <message id="compress.command.captures">
        <source>Recent Captures</source>
        <translation>最近のキャプチャ</translation>
    </message>
    <message id="compress.toast.done" numerus="yes">
        <source>%n image(s) compressed</source>
        <translation>
            <numerusform>%n 枚の画像を圧縮しました</numerusform>
        </translation>
    </message>
    <message id="compress.toast.savedPercent">
        <source>%1 saved (%2%)</source>
        <translation>%1 削減 (%2%)</translation>
    </message>
    <message id="compress.toast.stopped" numerus="yes">
        <source>%n stopped</source>
        <translation>
            <numerusform>%n 件中止</numerusform>
        </translation>
    </message>
    <message id="editor.compress">
        <source>Compress…</source>
        <translation>圧縮…</translation>
    </message>
    <message id="recording.bar.level">
        <source>Level of the microphone</source>
        <translation>マイクのレベル</translation>
    </message>
    <message id="recording.bar.device">
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message id="recording.bar.start">
        <source>Start</source>
        <translation>開始</translation>
    </message>
    <message id="recording.bar.startTip">
        <source>Start recording (Return)</source>
        <translation>録画を開始 (Return)</translation>
    </message>
    <message id="recording.camera.close">
        <source>Turn the camera off</source>
        <translation>カメラをオフにする</translation>
    </message>
    <message id="recording.camera">
        <source>Camera</source>
        <translation>カメラ</translation>
    </message>
    <message id="recording.camera.help">
        <source>Drag to move, turn the wheel to resize</source>
        <translation>ドラッグで移動、ホイールでサイズ変更</translation>
    </message>
    <message id="recording.bar.resume">
        <source>Resume</source>
        <translation>再開</translation>
    </message>
    <message id="recording.bar.pause">
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message id="recording.bar.sound.on">
        <source>Sound of the computer: on</source>
        <translation>コンピュータの音声: オン</translation>
    </message>
    <message id="recording.bar.sound.off">
        <source>Sound of the computer: off</source>
        <translation>コンピュータの音声: オフ</translation>
    </message>
    <message id="recording.bar.keys.on">
        <source>Keystrokes are recorded</source>
        <translation>キー操作を記録します</translation>
    </message>
    <message id="recording.bar.keys.off">
        <source>Keystrokes are not recorded</source>
        <translation>キー操作は記録しません</translation>
    </message>
    <message id="recording.bar.startingIn">
        <source>Starting in %1</source>
        <translation>%1 秒後に開始</translation>
    </message>
    <message id="recording.bar.starting">
        <source>Starting…</source>
        <translation>開始しています…</translation>
    </message>
    <message id="recording.bar">
        <source>Recording</source>
        <translation>録画</translation>
    </message>
    <message id="recording.bar.mic">
        <source>Microphone</source>
        <translation>マイク</translation>
    </message>
    <message id="recording.bar.mic.none">
        <source>No microphone</source>
        <translation>マイクなし</translation>
    </message>
    <message id="recording.bar.camera">
        <source>Camera</source>
        <translation>カメラ</translation>
    </message>
    <message id="recording.bar.camera.none">
        <source>No camera</source>
        <translation>カメラなし</translation>
    </message>
    <message id="recording.bar.cancel">
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message id="recording.bar.elapsed">
        <source>Recorded time</source>
        <translation>録画時間</translation>
    </message>
    <message id="recording.bar.stop">
        <source>Stop and keep the recording</source>
        <translation>停止して録画を保存</translation>
    </message>
    <message id="recording.bar.close">
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message id="recording.bar.keys.hidden">
        <source>A password is being typed: keystrokes are not recorded</source>
        <translation>パスワード入力中: キー操作は記録されません</translation>
    </message>
    <message id="recording.countdown" numerus="yes">
        <source>Recording starts in %n second(s)</source>
        <translation>
            <numerusform>%n 秒後に録画を開始</numerusform>
        </translation>
    </message>
    <message id="alert.ok">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="recording.error.writerSetupFailed">
        <source>Failed to set up the video writer.</source>
        <translation>ビデオの書き込みを準備できませんでした。</translation>
    </message>
    <message id="recording.error.writeFailed">
        <source>Failed to write the recording.</source>
        <translation>録画を書き込めませんでした。</translation>
    </message>
    <message id="recording.error.displayNotFound">
        <source>Could not find the display to record.</source>
        <translation>録画する画面が見つかりませんでした。</translation>
    </message>
    <message id="recording.error.windowNotFound">
        <source>Could not find the window to record.</source>
        <translation>録画するウインドウが見つかりませんでした。</translation>
    </message>
    <message id="recording.error.micNotFound">
        <source>Could not find the selected microphone.</source>
        <translation>選択したマイクが見つかりませんでした。</translation>
    </message>
    <message id="recording.error.cameraNotFound">
        <source>Could not find the selected camera.</source>
        <translation>選択したカメラが見つかりませんでした。</translation>
    </message>
    <message id="toast.recordingFailed">
        <source>The recording could not be kept</source>
        <translation>録画を保存できませんでした</translation>
    </message>
    <message id="record.keyboard.saveFailed">
        <source>The recording is complete, but its keystrokes could not be saved</source>
        <translation>録画は完全ですが、キー操作を保存できませんでした</translation>
    </message>
    <message id="recording.mic.unavailable">
        <source>The microphone cannot be used: recording without it</source>
        <translation>マイクを使えません。マイクなしで録画します</translation>
    </message>
    <message id="recording.mic.lost">
        <source>The microphone is gone: the recording goes on without sound from it</source>
        <translation>マイクがなくなりました。その音声なしで録画を続けます</translation>
    </message>
    <message id="recording.camera.lost">
        <source>The camera is gone: the recording goes on without it</source>
        <translation>カメラがなくなりました。カメラなしで録画を続けます</translation>
    </message>
    <message id="recording.disk.low">
        <source>The disk has room for about five more minutes of recording</source>
        <translation>ディスクの空きは録画約 5 分ぶんです</translation>
    </message>
    <message id="recording.disk.full">
        <source>The recording was stopped because the disk is nearly full. Everything so far is kept.</source>
        <translation>ディスクがほぼいっぱいのため録画を停止しました。それまでの内容は保存されています。</translation>
    </message>
    <message id="recording.stopped">
        <source>What was being recorded is gone. The recording up to then is kept.</source>
        <translation>録画の対象がなくなりました。それまでの録画は保存されています。</translation>
    </message>
    <message id="record.keyboard.permission.title">
        <source>Keystrokes cannot be recorded</source>
        <translation>キー操作を記録できません</translation>
    </message>
    <message id="record.keyboard.permission.body">
        <source>This desktop does not let programs see which keys are pressed. The rest is recorded as usual.</source>
        <translation>このデスクトップでは、押されたキーをプログラムが読み取れません。その他は通常どおり録画されます。</translation>
    </message>
    <message id="alert.importVideo.unreadable.title">
        <source>This file cannot be read as a video</source>
        <translation>このファイルはビデオとして読み取れません</translation>
    </message>
    <message id="recording.startFailed">
        <source>The recording could not be started</source>
        <translation>録画を開始できませんでした</translation>
    </message>
    <message id="recording.region.fullDisplay">
        <source>Full display</source>
        <translation>画面全体</translation>
    </message>
    <message id="recording.region.square">
        <source>Square</source>
        <translation>正方形</translation>
    </message>
    <message id="recording.region.presets">
        <source>Sizes and shapes</source>
        <translation>サイズと形</translation>
    </message>
    <message id="recording.region.badge">
        <source>Size of the recording; drag to move it</source>
        <translation>録画のサイズ。ドラッグで移動</translation>
    </message>
    <message id="recording.region.sizes">
        <source>%1 px · %2 pt</source>
        <translation>%1 px · %2 pt</translation>
    </message>
    <message id="toast.recordingsRecovered" numerus="yes">
        <source>%n interrupted recording(s) saved: look under Recent Recordings</source>
        <translation>
            <numerusform>中断された録画 %n 件を保存しました。「最近の録画」にあります</numerusform>
        </translation>
    </message>
    <message id="toast.recordingNotOpened">
        <source>This recording cannot be opened: it has no movie</source>
        <translation>この録画は開けません。動画が含まれていません</translation>
    </message>
    <message id="record.source.region">
        <source>Region</source>
        <translation>範囲</translation>
    </message>
    <message id="record.source.window">
        <source>Window</source>
        <translation>ウインドウ</translation>
    </message>
    <message id="record.source.fullscreen">
        <source>Full screen</source>
        <translation>全画面</translation>
    </message>
    <message id="import.video.title">
        <source>Import a video</source>
        <translation>ビデオを読み込む</translation>
    </message>
    <message id="import.video.filter">
        <source>Videos (%1)</source>
        <translation>ビデオ (%1)</translation>
    </message>
    <message id="import.video.all">
        <source>All files (*)</source>
        <translation>すべてのファイル (*)</translation>
    </message>
    <message id="toast.importingVideo">
        <source>Importing the video…</source>
        <translation>ビデオを読み込んでいます…</translation>
    </message>
    <message id="toast.importNotCopied">
        <source>The video could not be copied into the recordings folder</source>
        <translation>ビデオを録画フォルダーにコピーできませんでした</translation>
    </message>
    <message id="player.picture">
        <source>Picture</source>
        <translation>映像</translation>
    </message>
    <message id="player.play">
        <source>Play</source>
        <translation>再生</translation>
    </message>
    <message id="player.sound">
        <source>Sound</source>
        <translation>音声</translation>
    </message>
    <message id="player.reveal">
        <source>Show in Folder</source>
        <translation>フォルダーに表示</translation>
    </message>
    <message id="player.notPlayable">
        <source>The movie of this recording cannot be played. Its folder may still hold what was recorded.</source>
        <translation>この収録の動画は再生できません。収録した内容がフォルダーに残っている可能性があります。</translation>
    </message>
    <message id="player.pause">
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message id="player.position">
        <source>Position</source>
        <translation>再生位置</translation>
    </message>
    <message id="recording.systemSound.unavailable">
        <source>This computer&apos;s sound cannot be recorded: the recording goes on without it</source>
        <translation>このコンピューターの音声を録音できません。音声なしで録画を続けます</translation>
    </message>
    <message id="recording.camera.unavailable">
        <source>The camera cannot be used: recording without it</source>
        <translation>カメラを使用できません。カメラなしで録画します</translation>
    </message>
    <message id="recording.mic.returned">
        <source>The microphone is back and recorded again</source>
        <translation>マイクが戻り、録音を再開しました</translation>
    </message>
    <message id="recording.systemSound.returned">
        <source>This computer&apos;s sound is recorded again</source>
        <translation>このコンピューターの音声の録音を再開しました</translation>
    </message>
</context>
</TS>
