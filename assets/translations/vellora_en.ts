<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
    <context>
        <name />
        <message id="toast.noTray">
            <source>Vellora is running. This desktop has no tray: start Vellora again to see its commands.</source>
            <translation>Vellora is running. This desktop has no tray: start Vellora again to see its commands.</translation>
        </message>
        <message id="toast.reopenFailed">
            <source>This capture can no longer be read</source>
            <translation>This capture can no longer be read</translation>
        </message>
        <message id="alert.clearHistory.title">
            <source>Clear the capture history?</source>
            <translation>Clear the capture history?</translation>
        </message>
        <message id="alert.clearHistory.body">
            <source>The recent captures will be deleted. Saved files stay where they are.</source>
            <translation>The recent captures will be deleted. Saved files stay where they are.</translation>
        </message>
        <message id="alert.clearHistory.confirm">
            <source>Clear History</source>
            <translation>Clear History</translation>
        </message>
        <message id="alert.cancel">
            <source>Cancel</source>
            <translation>Cancel</translation>
        </message>
        <message id="load.file.title">
            <source>Open a picture</source>
            <translation>Open a picture</translation>
        </message>
        <message id="load.file.filter">
            <source>Pictures (%1)</source>
            <translation>Pictures (%1)</translation>
        </message>
        <message id="alert.cleanupRecordings.title" numerus="yes">
            <source>Move %n recording(s) to the Trash?</source>
            <translation>
                <numerusform>Move %n recording to the Trash?</numerusform>
                <numerusform>Move %n recordings to the Trash?</numerusform>
            </translation>
        </message>
        <message id="alert.cleanupRecordings.body">
            <source>They take up %1.</source>
            <translation>They take up %1.</translation>
        </message>
        <message id="alert.cleanupRecordings.openNote">
            <source>Recordings that are open stay.</source>
            <translation>Recordings that are open stay.</translation>
        </message>
        <message id="alert.cleanupRecordings.confirm">
            <source>Move to Trash</source>
            <translation>Move to Trash</translation>
        </message>
        <message id="toast.recordingsTrashed">
            <source>Recordings moved to the Trash</source>
            <translation>Recordings moved to the Trash</translation>
        </message>
        <message id="alert.screenRecording.title">
            <source>Vellora is not allowed to see the screen</source>
            <translation>Vellora is not allowed to see the screen</translation>
        </message>
        <message id="alert.screenRecording.body">
            <source>Allow Vellora to record the screen in the desktop's privacy settings, then try again.</source>
            <translation>Allow Vellora to record the screen in the desktop's privacy settings, then try again.</translation>
        </message>
        <message id="alert.accessibility.title">
            <source>Vellora is not allowed to follow the pointer</source>
            <translation>Vellora is not allowed to follow the pointer</translation>
        </message>
        <message id="alert.accessibility.body">
            <source>Allow Vellora to use accessibility in the desktop's privacy settings, then try again.</source>
            <translation>Allow Vellora to use accessibility in the desktop's privacy settings, then try again.</translation>
        </message>
        <message id="alert.screenRecording.open">
            <source>Open Settings</source>
            <translation>Open Settings</translation>
        </message>
        <message id="load.error.noPicture">
            <source>No picture could be read from the clipboard</source>
            <translation>No picture could be read from the clipboard</translation>
        </message>
        <message id="settings.about.title">
            <source>About</source>
            <translation>About</translation>
        </message>
        <message id="settings.about.summary">
            <source>Screenshots, recordings and live streams</source>
            <translation>Screenshots, recordings and live streams</translation>
        </message>
        <message id="settings.about.version">
            <source>Version %1</source>
            <translation>Version %1</translation>
        </message>
        <message id="settings.about.licence">
            <source>Licence</source>
            <translation>Licence</translation>
        </message>
        <message id="settings.about.website">
            <source>Website</source>
            <translation>Website</translation>
        </message>
        <message id="settings.about.issues">
            <source>Report a problem</source>
            <translation>Report a problem</translation>
        </message>
        <message id="settings.about.licences">
            <source>Licences of fonts, icons and libraries</source>
            <translation>Licences of fonts, icons and libraries</translation>
        </message>
        <message id="settings.general.title">
            <source>General</source>
            <translation>General</translation>
        </message>
        <message id="settings.general.afterCapture">
            <source>After a capture</source>
            <translation>After a capture</translation>
        </message>
        <message id="settings.clipboard.title">
            <source>Clipboard</source>
            <translation>Clipboard</translation>
        </message>
        <message id="settings.clipboard.copyAs">
            <source>Copy captures as</source>
            <translation>Copy captures as</translation>
        </message>
        <message id="settings.clipboard.info">
            <source>Some programs paste files, others paste pictures. With both, each takes the one it understands.</source>
            <translation>Some programs paste files, others paste pictures. With both, each takes the one it understands.</translation>
        </message>
        <message id="settings.general.saving">
            <source>Saving</source>
            <translation>Saving</translation>
        </message>
        <message id="settings.general.saveFolder">
            <source>Folder for captures</source>
            <translation>Folder for captures</translation>
        </message>
        <message id="settings.general.choose">
            <source>Choose…</source>
            <translation>Choose…</translation>
        </message>
        <message id="settings.general.resetDesktop">
            <source>Use Desktop Folder</source>
            <translation>Use Desktop Folder</translation>
        </message>
        <message id="settings.general.resetDesktopHelp">
            <source>Save captures to the Desktop folder again</source>
            <translation>Save captures to the Desktop folder again</translation>
        </message>
        <message id="settings.general.language">
            <source>Language</source>
            <translation>Language</translation>
        </message>
        <message id="settings.general.interfaceLanguage">
            <source>Language of the interface</source>
            <translation>Language of the interface</translation>
        </message>
        <message id="settings.general.systemLanguage">
            <source>System language</source>
            <translation>System language</translation>
        </message>
        <message id="settings.general.keepOneAction">
            <source>At least one action has to stay on.</source>
            <translation>At least one action has to stay on.</translation>
        </message>
        <message id="settings.general.chooseTitle">
            <source>Choose a folder for captures</source>
            <translation>Choose a folder for captures</translation>
        </message>
        <message id="settings.general.showEditor">
            <source>Open in the editor</source>
            <translation>Open in the editor</translation>
        </message>
        <message id="settings.general.copy">
            <source>Copy to the clipboard</source>
            <translation>Copy to the clipboard</translation>
        </message>
        <message id="settings.general.save">
            <source>Save as a file</source>
            <translation>Save as a file</translation>
        </message>
        <message id="settings.general.pin">
            <source>Pin to the screen</source>
            <translation>Pin to the screen</translation>
        </message>
        <message id="settings.general.showEditorHelp">
            <source>In a window, ready to be copied or saved.</source>
            <translation>In a window, ready to be copied or saved.</translation>
        </message>
        <message id="settings.general.copyHelp">
            <source>Ready to be pasted into another program.</source>
            <translation>Ready to be pasted into another program.</translation>
        </message>
        <message id="settings.general.saveHelp">
            <source>As a PNG picture in the folder below.</source>
            <translation>As a PNG picture in the folder below.</translation>
        </message>
        <message id="settings.general.pinHelp">
            <source>It stays above all windows. Takes the place of the editor.</source>
            <translation>It stays above all windows. Takes the place of the editor.</translation>
        </message>
        <message id="settings.clipboard.fileAndImage">
            <source>File and picture</source>
            <translation>File and picture</translation>
        </message>
        <message id="settings.clipboard.fileOnly">
            <source>File only</source>
            <translation>File only</translation>
        </message>
        <message id="settings.clipboard.imageOnly">
            <source>Picture only</source>
            <translation>Picture only</translation>
        </message>
        <message id="settings.shortcuts.title">
            <source>Shortcuts</source>
            <translation>Shortcuts</translation>
        </message>
        <message id="settings.title">
            <source>Vellora Settings</source>
            <translation>Vellora Settings</translation>
        </message>
        <message id="settings.pages">
            <source>Settings pages</source>
            <translation>Settings pages</translation>
        </message>
        <message id="shortcut.recording">
            <source>Press the keys…</source>
            <translation>Press the keys…</translation>
        </message>
        <message id="shortcut.recordingHelp">
            <source>Press the new combination. Esc stops, Delete goes back to the default.</source>
            <translation>Press the new combination. Esc stops, Delete goes back to the default.</translation>
        </message>
        <message id="shortcut.none">
            <source>None</source>
            <translation>None</translation>
        </message>
        <message id="shortcut.startHelp">
            <source>Click to record another combination</source>
            <translation>Click to record another combination</translation>
        </message>
        <message id="settings.shortcuts.conflict">
            <source>%1 already belongs to “%2”.</source>
            <translation>%1 already belongs to “%2”.</translation>
        </message>
        <message id="settings.shortcuts.group">
            <source>Global shortcuts</source>
            <translation>Global shortcuts</translation>
        </message>
        <message id="settings.shortcuts.info">
            <source>They work in every program. Click a shortcut and press the new combination: with Ctrl, Alt or Super, or a function key alone.</source>
            <translation>They work in every program. Click a shortcut and press the new combination: with Ctrl, Alt or Super, or a function key alone.</translation>
        </message>
        <message id="shortcut.reset">
            <source>Back to the default</source>
            <translation>Back to the default</translation>
        </message>
        <message id="settings.shortcuts.heldElsewhere">
            <source>Another program holds %1. Choose another combination, or free it there.</source>
            <translation>Another program holds %1. Choose another combination, or free it there.</translation>
        </message>
        <message id="settings.shortcuts.fnHint">
            <source>If the F-keys of this keyboard do something else, hold Fn as well.</source>
            <translation>If the F-keys of this keyboard do something else, hold Fn as well.</translation>
        </message>
        <message id="menu.captureArea">
            <source>Capture Area</source>
            <translation>Capture Area</translation>
        </message>
        <message id="menu.captureWindow">
            <source>Capture Window</source>
            <translation>Capture Window</translation>
        </message>
        <message id="menu.captureFullscreen">
            <source>Capture Full Screen</source>
            <translation>Capture Full Screen</translation>
        </message>
        <message id="menu.captureScrolling">
            <source>Capture Scrolling Page</source>
            <translation>Capture Scrolling Page</translation>
        </message>
        <message id="menu.captureText">
            <source>Capture Text</source>
            <translation>Capture Text</translation>
        </message>
        <message id="menu.moreCaptures">
            <source>More Captures</source>
            <translation>More Captures</translation>
        </message>
        <message id="menu.captureElement">
            <source>Capture Element</source>
            <translation>Capture Element</translation>
        </message>
        <message id="menu.captureAreaSized">
            <source>Capture Fixed Size…</source>
            <translation>Capture Fixed Size…</translation>
        </message>
        <message id="menu.captureFullscreenDelayed">
            <source>Capture Full Screen in 3 Seconds</source>
            <translation>Capture Full Screen in 3 Seconds</translation>
        </message>
        <message id="menu.loadFromClipboard">
            <source>Load from Clipboard</source>
            <translation>Load from Clipboard</translation>
        </message>
        <message id="menu.loadFromFile">
            <source>Load from File…</source>
            <translation>Load from File…</translation>
        </message>
        <message id="menu.reopen">
            <source>Reopen Last Capture</source>
            <translation>Reopen Last Capture</translation>
        </message>
        <message id="menu.reopenMore">
            <source>Recent Captures</source>
            <translation>Recent Captures</translation>
        </message>
        <message id="menu.clearHistory">
            <source>Clear History…</source>
            <translation>Clear History…</translation>
        </message>
        <message id="menu.compressImages">
            <source>Compress Images…</source>
            <translation>Compress Images…</translation>
        </message>
        <message id="menu.recordRegion">
            <source>Record Area</source>
            <translation>Record Area</translation>
        </message>
        <message id="menu.stopRecording">
            <source>Stop Recording</source>
            <translation>Stop Recording</translation>
        </message>
        <message id="menu.pauseRecording">
            <source>Pause Recording</source>
            <translation>Pause Recording</translation>
        </message>
        <message id="menu.resumeRecording">
            <source>Resume Recording</source>
            <translation>Resume Recording</translation>
        </message>
        <message id="menu.recordWindow">
            <source>Record Window</source>
            <translation>Record Window</translation>
        </message>
        <message id="menu.recordFullscreen">
            <source>Record Full Screen</source>
            <translation>Record Full Screen</translation>
        </message>
        <message id="menu.recentRecordings">
            <source>Recent Recordings</source>
            <translation>Recent Recordings</translation>
        </message>
        <message id="menu.openRecordingsFolder">
            <source>Open Recordings Folder</source>
            <translation>Open Recordings Folder</translation>
        </message>
        <message id="menu.cleanupRecordings">
            <source>Clean Up Recordings…</source>
            <translation>Clean Up Recordings…</translation>
        </message>
        <message id="menu.importVideo">
            <source>Import Video…</source>
            <translation>Import Video…</translation>
        </message>
        <message id="menu.startLive">
            <source>Go Live…</source>
            <translation>Go Live…</translation>
        </message>
        <message id="menu.stopLive">
            <source>Stop Live</source>
            <translation>Stop Live</translation>
        </message>
        <message id="menu.settings">
            <source>Settings…</source>
            <translation>Settings…</translation>
        </message>
        <message id="menu.quit">
            <source>Quit Vellora</source>
            <translation>Quit Vellora</translation>
        </message>
        <message id="toast.copiedAndSavedTo">
            <source>Copied and saved to %1</source>
            <translation>Copied and saved to %1</translation>
        </message>
        <message id="toast.copied">
            <source>Copied</source>
            <translation>Copied</translation>
        </message>
        <message id="toast.savedTo">
            <source>Saved to %1</source>
            <translation>Saved to %1</translation>
        </message>
        <message id="toast.captureOutputFailed">
            <source>Copying or saving failed; the capture is kept in the history</source>
            <translation>Copying or saving failed; the capture is kept in the history</translation>
        </message>
        <message id="toast.saveFailed">
            <source>Saving to %1 failed; the capture is kept in the history</source>
            <translation>Saving to %1 failed; the capture is kept in the history</translation>
        </message>
        <message id="countdown.help">
            <source>Capture in a moment. Click or press Escape to cancel.</source>
            <translation>Capture in a moment. Click or press Escape to cancel.</translation>
        </message>
        <message id="countdown.name">
            <source>Countdown</source>
            <translation>Countdown</translation>
        </message>
        <message id="overlay.badge.scaledSize">
            <source>%1 px  ·  %2 × %3 pt</source>
            <translation>%1 px  ·  %2 × %3 pt</translation>
        </message>
        <message id="overlay.hint.area">
            <source>Drag an area or click a window  ·  Space from the keyboard  ·  Esc cancels</source>
            <translation>Drag an area or click a window  ·  Space from the keyboard  ·  Esc cancels</translation>
        </message>
        <message id="overlay.hint.text">
            <source>Drag over the text to read  ·  Esc cancels</source>
            <translation>Drag over the text to read  ·  Esc cancels</translation>
        </message>
        <message id="overlay.hint.scrolling">
            <source>Drag over the part that scrolls  ·  Esc cancels</source>
            <translation>Drag over the part that scrolls  ·  Esc cancels</translation>
        </message>
        <message id="overlay.hint.recording">
            <source>Drag the area to record or click a window  ·  Esc cancels</source>
            <translation>Drag the area to record or click a window  ·  Esc cancels</translation>
        </message>
        <message id="overlay.hint.adjust">
            <source>Drag the handles or use the arrow keys  ·  Return takes it  ·  Esc starts over</source>
            <translation>Drag the handles or use the arrow keys  ·  Return takes it  ·  Esc starts over</translation>
        </message>
        <message id="overlay.hint.window">
            <source>Click a window  ·  Tab goes through them  ·  Esc cancels</source>
            <translation>Click a window  ·  Tab goes through them  ·  Esc cancels</translation>
        </message>
        <message id="picture.view">
            <source>Captured picture</source>
            <translation>Captured picture</translation>
        </message>
        <message id="picture.copy">
            <source>Copy</source>
            <translation>Copy</translation>
        </message>
        <message id="picture.save">
            <source>Save</source>
            <translation>Save</translation>
        </message>
        <message id="picture.close">
            <source>Close</source>
            <translation>Close</translation>
        </message>
        <message id="picture.status">
            <source>%1 × %2 px  ·  %3 %</source>
            <translation>%1 × %2 px  ·  %3 %</translation>
        </message>
        <message id="history.yesterday">
            <source>Yesterday</source>
            <translation>Yesterday</translation>
        </message>
        <message id="load.error.notFound">
            <source>The file does not exist</source>
            <translation>The file does not exist</translation>
        </message>
        <message id="load.error.notPermitted">
            <source>You may not read this file</source>
            <translation>You may not read this file</translation>
        </message>
        <message id="load.error.notAFile">
            <source>This is not a file</source>
            <translation>This is not a file</translation>
        </message>
        <message id="load.error.tooLarge">
            <source>The picture is too large</source>
            <translation>The picture is too large</translation>
        </message>
        <message id="load.error.notAnImage">
            <source>This is not a picture Vellora can read</source>
            <translation>This is not a picture Vellora can read</translation>
        </message>
        <message id="load.error.unsupported">
            <source>This kind of picture cannot be read</source>
            <translation>This kind of picture cannot be read</translation>
        </message>
        <message id="load.error.outOfMemory">
            <source>There is not enough memory for the picture</source>
            <translation>There is not enough memory for the picture</translation>
        </message>
        <message id="load.error.damaged">
            <source>The picture is damaged</source>
            <translation>The picture is damaged</translation>
        </message>
        <message id="capture.error.windowGone">
            <source>The window is gone</source>
            <translation>The window is gone</translation>
        </message>
        <message id="capture.error.cropFailed">
            <source>Nothing of that area is on the screen any more</source>
            <translation>Nothing of that area is on the screen any more</translation>
        </message>
        <message id="capture.error.noDisplay">
            <source>The screen is not there any more</source>
            <translation>The screen is not there any more</translation>
        </message>
        <message id="capture.error.failed">
            <source>The screen cannot be captured</source>
            <translation>The screen cannot be captured</translation>
        </message>
        <message id="toast.waylandSession">
            <source>This is a Wayland session: for now Vellora sees only programs that use X11</source>
            <translation>This is a Wayland session: for now Vellora sees only programs that use X11</translation>
        </message>
    </context>
</TS>
