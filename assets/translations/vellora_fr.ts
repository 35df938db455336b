<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name></name>
    <message id="toast.noTray">
        <source>Vellora is running. This desktop has no tray: start Vellora again to see its commands.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="toast.reopenFailed">
        <source>This capture can no longer be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="alert.clearHistory.title">
        <source>Clear the capture history?</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="alert.clearHistory.body">
        <source>The last captures are deleted. Saved files stay where they are.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="alert.clearHistory.confirm">
        <source>Clear History</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="alert.cancel">
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="load.file.title">
        <source>Open a picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="load.file.filter">
        <source>Pictures (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="alert.cleanupRecordings.title" numerus="yes">
        <source>Move %n recording(s) to the Trash?</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message id="alert.cleanupRecordings.body">
        <source>They take up %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="alert.cleanupRecordings.openNote">
        <source>Recordings that are open stay.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="alert.cleanupRecordings.confirm">
        <source>Move to Trash</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="toast.recordingsTrashed">
        <source>Recordings moved to the Trash</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="alert.screenRecording.title">
        <source>Vellora may not see the screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="alert.screenRecording.body">
        <source>Allow Vellora to record the screen in the desktop&apos;s privacy settings, then try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="alert.accessibility.title">
        <source>Vellora may not follow the pointer</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="alert.accessibility.body">
        <source>Allow Vellora to use accessibility in the desktop&apos;s privacy settings, then try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="alert.screenRecording.open">
        <source>Open Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="load.error.noPicture">
        <source>The clipboard holds no picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.about.title">
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.about.summary">
        <source>Screenshots, recordings and live streams</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.about.version">
        <source>Version %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.about.licence">
        <source>Licence</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.about.website">
        <source>Website</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.about.issues">
        <source>Report a problem</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.about.licences">
        <source>Licences of fonts, icons and libraries</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.title">
        <source>General</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.afterCapture">
        <source>After a capture</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.clipboard.title">
        <source>Clipboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.clipboard.copyAs">
        <source>Copy captures as</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.clipboard.info">
        <source>Some programs paste files, others paste pictures. With both, each takes the one it understands.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.saving">
        <source>Saving</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.saveFolder">
        <source>Folder for captures</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.choose">
        <source>Choose…</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.resetDesktop">
        <source>Use Desktop</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.resetDesktopHelp">
        <source>Save captures to the Desktop folder again</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.language">
        <source>Language</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.interfaceLanguage">
        <source>Language of the interface</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.systemLanguage">
        <source>As on the desktop</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.keepOneAction">
        <source>At least one action has to stay on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.chooseTitle">
        <source>Choose a folder for captures</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.showEditor">
        <source>Open in the editor</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.copy">
        <source>Copy to the clipboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.save">
        <source>Save as a file</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.pin">
        <source>Pin to the screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.showEditorHelp">
        <source>Draw on it, crop it and set it on a backdrop.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.copyHelp">
        <source>Ready to be pasted into another program.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.saveHelp">
        <source>As a PNG picture in the folder below.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.general.pinHelp">
        <source>It stays above all windows. Takes the place of the editor.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.clipboard.fileAndImage">
        <source>File and picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.clipboard.fileOnly">
        <source>File only</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.clipboard.imageOnly">
        <source>Picture only</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.shortcuts.title">
        <source>Shortcuts</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.title">
        <source>Vellora Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.pages">
        <source>Settings pages</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="shortcut.recording">
        <source>Press the keys…</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="shortcut.recordingHelp">
        <source>Press the new combination. Esc stops, Delete goes back to the default.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="shortcut.none">
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="shortcut.startHelp">
        <source>Click to record another combination</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.shortcuts.conflict">
        <source>%1 already belongs to “%2”.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.shortcuts.group">
        <source>Global shortcuts</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.shortcuts.info">
        <source>They work in every program. Click a shortcut, then press the new combination: with Ctrl, Alt or Super, or a
</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="shortcut.reset">
        <source>Back to the default</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.shortcuts.heldElsewhere">
        <source>Another program holds %1. Choose another combination, or free it there.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="settings.shortcuts.fnHint">
        <source>If the F-keys of this keyboard do something else, hold Fn as well.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.captureArea">
        <source>Capture Area</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.captureWindow">
        <source>Capture Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.captureFullscreen">
        <source>Capture Full Screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.captureScrolling">
        <source>Capture Scrolling Page</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.captureText">
        <source>Capture Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.moreCaptures">
        <source>More Captures</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.captureElement">
        <source>Capture Element</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.captureAreaSized">
        <source>Capture Fixed Size…</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.captureFullscreenDelayed">
        <source>Capture Full Screen in 3 Seconds</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.loadFromClipboard">
        <source>Load from Clipboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.loadFromFile">
        <source>Load from File…</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.reopen">
        <source>Reopen Last Capture</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.reopenMore">
        <source>Recent Captures</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.clearHistory">
        <source>Clear History…</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.compressImages">
        <source>Compress Images…</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.recordRegion">
        <source>Record Area</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.stopRecording">
        <source>Stop Recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.pauseRecording">
        <source>Pause Recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.resumeRecording">
        <source>Resume Recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.recordWindow">
        <source>Record Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.recordFullscreen">
        <source>Record Full Screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.recentRecordings">
        <source>Recent Recordings</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.openRecordingsFolder">
        <source>Open Recordings Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.cleanupRecordings">
        <source>Clean Up Recordings…</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.importVideo">
        <source>Import Video…</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.startLive">
        <source>Go Live…</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.stopLive">
        <source>Stop Live</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.settings">
        <source>Settings…</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu.quit">
        <source>Quit Vellora</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="toast.copiedAndSavedTo">
        <source>Copied and saved to %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="toast.copied">
        <source>Copied</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="toast.savedTo">
        <source>Saved to %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="toast.captureOutputFailed">
        <source>Copying or saving failed; the capture is kept in the history</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="countdown.help">
        <source>Capture in a moment. Click or press Escape to cancel.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="countdown.name">
        <source>Countdown</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="overlay.badge.scaledSize">
        <source>%1 px  ·  %2 × %3 pt</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="overlay.hint.area">
        <source>Drag an area or click a window  ·  Space from the keyboard  ·  Esc cancels</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="overlay.hint.text">
        <source>Drag over the text to read  ·  Esc cancels</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="overlay.hint.scrolling">
        <source>Drag over the part that scrolls  ·  Esc cancels</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="overlay.hint.recording">
        <source>Drag the area to record or click a window  ·  Esc cancels</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="overlay.hint.adjust">
        <source>Drag the handles or use the arrow keys  ·  Return takes it  ·  Esc starts over</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="overlay.hint.window">
        <source>Click a window  ·  Tab goes through them  ·  Esc cancels</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="picture.view">
        <source>Captured picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="picture.copy">
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="picture.save">
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="picture.close">
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="picture.status">
        <source>%1 × %2 px  ·  %3 %</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="history.yesterday">
        <source>Yesterday</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
