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
        <source>In a window, ready to be copied or saved.</source>
        <translation>ウィンドウに表示し、すぐにコピーや保存ができます。</translation>
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
    <message id="picture.view">
        <source>Captured picture</source>
        <translation>キャプチャした画像</translation>
    </message>
    <message id="picture.copy">
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message id="picture.save">
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message id="picture.close">
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message id="picture.status">
        <source>%1 × %2 px  ·  %3 %</source>
        <translation>%1 × %2 px  ·  %3%</translation>
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
</context>
</TS>
