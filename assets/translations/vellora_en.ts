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
            <source>In the editor, ready to be annotated.</source>
            <translation>In the editor, ready to be annotated.</translation>
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
        <message id="toast.recovered" numerus="yes">
            <source>%n capture(s) that were open when Vellora ended are in the history</source>
            <translation>
                <numerusform>%n capture that were open when Vellora ended are in the history</numerusform>
                <numerusform>%n captures that were open when Vellora ended are in the history</numerusform>
            </translation>
        </message>
        <message id="toast.pinFailed">
            <source>This picture cannot be pinned</source>
            <translation>This picture cannot be pinned</translation>
        </message>
        <message id="menu.endClickThrough">
            <source>Let Clicks Reach the Pins Again</source>
            <translation>Let Clicks Reach the Pins Again</translation>
        </message>
        <message id="backdrop.frame.browserLight">
            <source>Browser window, light</source>
            <translation>Browser window, light</translation>
        </message>
        <message id="backdrop.frame.laptopLight">
            <source>Laptop, light</source>
            <translation>Laptop, light</translation>
        </message>
        <message id="backdrop.frame.phoneLight">
            <source>Phone, light</source>
            <translation>Phone, light</translation>
        </message>
        <message id="backdrop.frame.browserDark">
            <source>Browser window, dark</source>
            <translation>Browser window, dark</translation>
        </message>
        <message id="backdrop.frame.laptopDark">
            <source>Laptop, dark</source>
            <translation>Laptop, dark</translation>
        </message>
        <message id="backdrop.frame.phoneDark">
            <source>Phone, dark</source>
            <translation>Phone, dark</translation>
        </message>
        <message id="backdrop.title">
            <source>Backdrop</source>
            <translation>Backdrop</translation>
        </message>
        <message id="backdrop.reset">
            <source>Back to the default backdrop</source>
            <translation>Back to the default backdrop</translation>
        </message>
        <message id="backdrop.enabled">
            <source>Show the backdrop</source>
            <translation>Show the backdrop</translation>
        </message>
        <message id="backdrop.layout">
            <source>Layout</source>
            <translation>Layout</translation>
        </message>
        <message id="backdrop.layout.margin">
            <source>Margin</source>
            <translation>Margin</translation>
        </message>
        <message id="backdrop.layout.radius">
            <source>Corner radius</source>
            <translation>Corner radius</translation>
        </message>
        <message id="backdrop.layout.shadow">
            <source>Shadow</source>
            <translation>Shadow</translation>
        </message>
        <message id="backdrop.aspect">
            <source>Aspect ratio</source>
            <translation>Aspect ratio</translation>
        </message>
        <message id="backdrop.aspect.auto">
            <source>Auto</source>
            <translation>Auto</translation>
        </message>
        <message id="backdrop.frame">
            <source>Frame</source>
            <translation>Frame</translation>
        </message>
        <message id="backdrop.frame.none">
            <source>No frame</source>
            <translation>No frame</translation>
        </message>
        <message id="backdrop.placement">
            <source>Placement</source>
            <translation>Placement</translation>
        </message>
        <message id="backdrop.tiltX">
            <source>Tilt sideways</source>
            <translation>Tilt sideways</translation>
        </message>
        <message id="backdrop.tiltY">
            <source>Tilt up and down</source>
            <translation>Tilt up and down</translation>
        </message>
        <message id="backdrop.rotation">
            <source>Rotation</source>
            <translation>Rotation</translation>
        </message>
        <message id="backdrop.contentScale">
            <source>Size</source>
            <translation>Size</translation>
        </message>
        <message id="backdrop.contentOffset">
            <source>Position</source>
            <translation>Position</translation>
        </message>
        <message id="backdrop.effects">
            <source>Effects</source>
            <translation>Effects</translation>
        </message>
        <message id="backdrop.glow">
            <source>Glow</source>
            <translation>Glow</translation>
        </message>
        <message id="backdrop.glowCenter">
            <source>Center of the glow</source>
            <translation>Center of the glow</translation>
        </message>
        <message id="backdrop.grain">
            <source>Grain</source>
            <translation>Grain</translation>
        </message>
        <message id="backdrop.edgeBlur">
            <source>Edge blur</source>
            <translation>Edge blur</translation>
        </message>
        <message id="backdrop.edgeBlur.none">
            <source>No edge blur</source>
            <translation>No edge blur</translation>
        </message>
        <message id="backdrop.edgeBlur.bottom">
            <source>Blur the bottom</source>
            <translation>Blur the bottom</translation>
        </message>
        <message id="backdrop.edgeBlur.left">
            <source>Blur the left</source>
            <translation>Blur the left</translation>
        </message>
        <message id="backdrop.edgeBlur.right">
            <source>Blur the right</source>
            <translation>Blur the right</translation>
        </message>
        <message id="backdrop.edgeBlur.all">
            <source>Blur all edges</source>
            <translation>Blur all edges</translation>
        </message>
        <message id="backdrop.curated.arc">
            <source>Arc</source>
            <translation>Arc</translation>
        </message>
        <message id="backdrop.curated.haze">
            <source>Haze</source>
            <translation>Haze</translation>
        </message>
        <message id="backdrop.curated.lavender">
            <source>Lavender</source>
            <translation>Lavender</translation>
        </message>
        <message id="backdrop.curated.ember">
            <source>Ember</source>
            <translation>Ember</translation>
        </message>
        <message id="backdrop.curated.moss">
            <source>Moss</source>
            <translation>Moss</translation>
        </message>
        <message id="backdrop.curated.lagoon">
            <source>Lagoon</source>
            <translation>Lagoon</translation>
        </message>
        <message id="backdrop.curated.sky">
            <source>Sky</source>
            <translation>Sky</translation>
        </message>
        <message id="backdrop.gradient.dawn">
            <source>Dawn</source>
            <translation>Dawn</translation>
        </message>
        <message id="backdrop.gradient.peach">
            <source>Peach</source>
            <translation>Peach</translation>
        </message>
        <message id="backdrop.gradient.coral">
            <source>Coral</source>
            <translation>Coral</translation>
        </message>
        <message id="backdrop.gradient.dusk">
            <source>Dusk</source>
            <translation>Dusk</translation>
        </message>
        <message id="backdrop.gradient.iris">
            <source>Iris</source>
            <translation>Iris</translation>
        </message>
        <message id="backdrop.gradient.indigo">
            <source>Indigo</source>
            <translation>Indigo</translation>
        </message>
        <message id="backdrop.gradient.ocean">
            <source>Ocean</source>
            <translation>Ocean</translation>
        </message>
        <message id="backdrop.gradient.mist">
            <source>Mist</source>
            <translation>Mist</translation>
        </message>
        <message id="backdrop.gradient.mint">
            <source>Mint</source>
            <translation>Mint</translation>
        </message>
        <message id="backdrop.gradient.forest">
            <source>Forest</source>
            <translation>Forest</translation>
        </message>
        <message id="backdrop.gradient.slate">
            <source>Slate</source>
            <translation>Slate</translation>
        </message>
        <message id="backdrop.gradient.night">
            <source>Night</source>
            <translation>Night</translation>
        </message>
        <message id="backdrop.color.white">
            <source>White</source>
            <translation>White</translation>
        </message>
        <message id="backdrop.color.gray">
            <source>Gray</source>
            <translation>Gray</translation>
        </message>
        <message id="backdrop.color.black">
            <source>Black</source>
            <translation>Black</translation>
        </message>
        <message id="backdrop.color.blue">
            <source>Blue</source>
            <translation>Blue</translation>
        </message>
        <message id="backdrop.color.purple">
            <source>Purple</source>
            <translation>Purple</translation>
        </message>
        <message id="backdrop.color.pink">
            <source>Pink</source>
            <translation>Pink</translation>
        </message>
        <message id="backdrop.color.red">
            <source>Red</source>
            <translation>Red</translation>
        </message>
        <message id="backdrop.color.orange">
            <source>Orange</source>
            <translation>Orange</translation>
        </message>
        <message id="backdrop.color.green">
            <source>Green</source>
            <translation>Green</translation>
        </message>
        <message id="backdrop.color.teal">
            <source>Teal</source>
            <translation>Teal</translation>
        </message>
        <message id="backdrop.background">
            <source>Background</source>
            <translation>Background</translation>
        </message>
        <message id="backdrop.ownPicture">
            <source>A picture of your own…</source>
            <translation>A picture of your own…</translation>
        </message>
        <message id="backdrop.ownColor">
            <source>Another color…</source>
            <translation>Another color…</translation>
        </message>
        <message id="backdrop.ownPicture.title">
            <source>Choose a background picture</source>
            <translation>Choose a background picture</translation>
        </message>
        <message id="backdrop.ownPicture.filter">
            <source>Pictures</source>
            <translation>Pictures</translation>
        </message>
        <message id="backdrop.gradient.stops">
            <source>Colors of the gradient</source>
            <translation>Colors of the gradient</translation>
        </message>
        <message id="backdrop.gradient.stopsHelp">
            <source>Drag a color to move it, away to remove it; click to add one</source>
            <translation>Drag a color to move it, away to remove it; click to add one</translation>
        </message>
        <message id="backdrop.gradient.color">
            <source>Color of the stop</source>
            <translation>Color of the stop</translation>
        </message>
        <message id="backdrop.gradient.add">
            <source>Add a color</source>
            <translation>Add a color</translation>
        </message>
        <message id="backdrop.gradient.remove">
            <source>Remove the color</source>
            <translation>Remove the color</translation>
        </message>
        <message id="backdrop.gradient.reverse">
            <source>Turn the gradient round</source>
            <translation>Turn the gradient round</translation>
        </message>
        <message id="backdrop.gradient.angle">
            <source>Angle</source>
            <translation>Angle</translation>
        </message>
        <message id="backdrop.styles">
            <source>Saved styles</source>
            <translation>Saved styles</translation>
        </message>
        <message id="backdrop.styles.save">
            <source>Save this style…</source>
            <translation>Save this style…</translation>
        </message>
        <message id="backdrop.styles.suggestion">
            <source>Style %1</source>
            <translation>Style %1</translation>
        </message>
        <message id="backdrop.styles.help">
            <source>Click applies the style; a right click renames, renews or deletes it</source>
            <translation>Click applies the style; a right click renames, renews or deletes it</translation>
        </message>
        <message id="backdrop.styles.rename">
            <source>Rename…</source>
            <translation>Rename…</translation>
        </message>
        <message id="backdrop.styles.renameAction">
            <source>Rename</source>
            <translation>Rename</translation>
        </message>
        <message id="backdrop.styles.update">
            <source>Replace with the current backdrop</source>
            <translation>Replace with the current backdrop</translation>
        </message>
        <message id="backdrop.styles.delete">
            <source>Delete</source>
            <translation>Delete</translation>
        </message>
        <message id="backdrop.styles.name">
            <source>Name of the style</source>
            <translation>Name of the style</translation>
        </message>
        <message id="backdrop.styles.accept">
            <source>Save</source>
            <translation>Save</translation>
        </message>
        <message id="canvas.hint.drawLine">
            <source>Drag to draw  ·  Shift keeps to steps of 45°</source>
            <translation>Drag to draw  ·  Shift keeps to steps of 45°</translation>
        </message>
        <message id="canvas.hint.drawShape">
            <source>Drag to draw  ·  Shift makes it even, Alt starts from the center</source>
            <translation>Drag to draw  ·  Shift makes it even, Alt starts from the center</translation>
        </message>
        <message id="canvas.hint.blur">
            <source>Drag over what should not be read</source>
            <translation>Drag over what should not be read</translation>
        </message>
        <message id="canvas.hint.magnifier">
            <source>Drag a lens over what should be larger</source>
            <translation>Drag a lens over what should be larger</translation>
        </message>
        <message id="canvas.hint.pen">
            <source>Drag to draw freehand</source>
            <translation>Drag to draw freehand</translation>
        </message>
        <message id="canvas.hint.counter">
            <source>Click to place the next number, drag to point it</source>
            <translation>Click to place the next number, drag to point it</translation>
        </message>
        <message id="canvas.hint.text">
            <source>Click to type, drag for a width</source>
            <translation>Click to type, drag for a width</translation>
        </message>
        <message id="canvas.hint.cropping">
            <source>Drag the edges to crop  ·  Return takes it  ·  Esc leaves</source>
            <translation>Drag the edges to crop  ·  Return takes it  ·  Esc leaves</translation>
        </message>
        <message id="canvas.hint.select">
            <source>Click to select, drag to select several</source>
            <translation>Click to select, drag to select several</translation>
        </message>
        <message id="canvas.hint.move">
            <source>Drag to move  ·  the arrow keys nudge</source>
            <translation>Drag to move  ·  the arrow keys nudge</translation>
        </message>
        <message id="canvas.hint.crop">
            <source>Drag to crop</source>
            <translation>Drag to crop</translation>
        </message>
        <message id="canvas.hint.resize">
            <source>Drag to resize  ·  Shift keeps it even, Alt keeps the center</source>
            <translation>Drag to resize  ·  Shift keeps it even, Alt keeps the center</translation>
        </message>
        <message id="canvas.hint.movePoint">
            <source>Drag to move this point</source>
            <translation>Drag to move this point</translation>
        </message>
        <message id="canvas.hint.turn">
            <source>Drag to turn</source>
            <translation>Drag to turn</translation>
        </message>
        <message id="canvas.hint.editText">
            <source>Click to place the cursor, drag to select text</source>
            <translation>Click to place the cursor, drag to select text</translation>
        </message>
        <message id="canvas.description" numerus="yes">
            <source>Picture of %1 pixels with %n annotation(s)</source>
            <translation>
                <numerusform>Picture of %1 pixels with %n annotation</numerusform>
                <numerusform>Picture of %1 pixels with %n annotations</numerusform>
            </translation>
        </message>
        <message id="canvas.description.selected" numerus="yes">
            <source>%n selected</source>
            <translation>
                <numerusform>%n selected</numerusform>
                <numerusform>%n selected</numerusform>
            </translation>
        </message>
        <message id="canvas.name">
            <source>Canvas</source>
            <translation>Canvas</translation>
        </message>
        <message id="canvas.hint.eyedropper">
            <source>Click to take the color  ·  Esc leaves</source>
            <translation>Click to take the color  ·  Esc leaves</translation>
        </message>
        <message id="canvas.hint.pan">
            <source>Drag to move the view</source>
            <translation>Drag to move the view</translation>
        </message>
        <message id="color.red">
            <source>Red</source>
            <translation>Red</translation>
        </message>
        <message id="color.orange">
            <source>Orange</source>
            <translation>Orange</translation>
        </message>
        <message id="color.yellow">
            <source>Yellow</source>
            <translation>Yellow</translation>
        </message>
        <message id="color.green">
            <source>Green</source>
            <translation>Green</translation>
        </message>
        <message id="color.blue">
            <source>Blue</source>
            <translation>Blue</translation>
        </message>
        <message id="color.violet">
            <source>Violet</source>
            <translation>Violet</translation>
        </message>
        <message id="color.pink">
            <source>Pink</source>
            <translation>Pink</translation>
        </message>
        <message id="color.slate">
            <source>Slate</source>
            <translation>Slate</translation>
        </message>
        <message id="editor.color">
            <source>Color</source>
            <translation>Color</translation>
        </message>
        <message id="editor.swatch.delete">
            <source>Delete Color</source>
            <translation>Delete Color</translation>
        </message>
        <message id="editor.swatch.add">
            <source>Add a color of your own</source>
            <translation>Add a color of your own</translation>
        </message>
        <message id="editor.swatch.tooltip">
            <source>Your color %1 (double click to edit)</source>
            <translation>Your color %1 (double click to edit)</translation>
        </message>
        <message id="editor.swatch.edit">
            <source>Edit Color…</source>
            <translation>Edit Color…</translation>
        </message>
        <message id="editor.failed.render">
            <source>The picture is too large to be made.</source>
            <translation>The picture is too large to be made.</translation>
        </message>
        <message id="editor.failed.encode">
            <source>The picture does not fit this format. PNG holds it.</source>
            <translation>The picture does not fit this format. PNG holds it.</translation>
        </message>
        <message id="editor.failed.write">
            <source>The file could not be written.</source>
            <translation>The file could not be written.</translation>
        </message>
        <message id="editor.progress.copy">
            <source>Copying…</source>
            <translation>Copying…</translation>
        </message>
        <message id="editor.progress.save">
            <source>Saving…</source>
            <translation>Saving…</translation>
        </message>
        <message id="editor.saveAs.title">
            <source>Save the picture as</source>
            <translation>Save the picture as</translation>
        </message>
        <message id="editor.saved">
            <source>Saved %1</source>
            <translation>Saved %1</translation>
        </message>
        <message id="editor.progress.print">
            <source>Printing…</source>
            <translation>Printing…</translation>
        </message>
        <message id="editor.bar">
            <source>Tools and style</source>
            <translation>Tools and style</translation>
        </message>
        <message id="editor.moreTools">
            <source>More tools</source>
            <translation>More tools</translation>
        </message>
        <message id="editor.dragOut">
            <source>Drag the picture into another program</source>
            <translation>Drag the picture into another program</translation>
        </message>
        <message id="editor.copy.outdated">
            <source>%1: the clipboard holds an older state</source>
            <translation>%1: the clipboard holds an older state</translation>
        </message>
        <message id="tool.select">
            <source>Select</source>
            <translation>Select</translation>
        </message>
        <message id="tool.arrow">
            <source>Arrow</source>
            <translation>Arrow</translation>
        </message>
        <message id="tool.rectangle">
            <source>Rectangle</source>
            <translation>Rectangle</translation>
        </message>
        <message id="tool.ellipse">
            <source>Ellipse</source>
            <translation>Ellipse</translation>
        </message>
        <message id="tool.line">
            <source>Line</source>
            <translation>Line</translation>
        </message>
        <message id="tool.pen">
            <source>Pen</source>
            <translation>Pen</translation>
        </message>
        <message id="tool.text">
            <source>Text</source>
            <translation>Text</translation>
        </message>
        <message id="tool.counter">
            <source>Counter</source>
            <translation>Counter</translation>
        </message>
        <message id="tool.pixelate">
            <source>Pixelate</source>
            <translation>Pixelate</translation>
        </message>
        <message id="tool.magnifier">
            <source>Magnifier</source>
            <translation>Magnifier</translation>
        </message>
        <message id="editor.crop">
            <source>Crop</source>
            <translation>Crop</translation>
        </message>
        <message id="editor.thinner">
            <source>Thinner</source>
            <translation>Thinner</translation>
        </message>
        <message id="editor.thicker">
            <source>Thicker</source>
            <translation>Thicker</translation>
        </message>
        <message id="editor.sketch">
            <source>Hand-Drawn</source>
            <translation>Hand-Drawn</translation>
        </message>
        <message id="editor.fill">
            <source>Fill</source>
            <translation>Fill</translation>
        </message>
        <message id="editor.nextBlurStyle">
            <source>Next Way to Pixelate</source>
            <translation>Next Way to Pixelate</translation>
        </message>
        <message id="editor.pickColor">
            <source>Pick Color from Screen</source>
            <translation>Pick Color from Screen</translation>
        </message>
        <message id="editor.undo">
            <source>Undo</source>
            <translation>Undo</translation>
        </message>
        <message id="editor.redo">
            <source>Redo</source>
            <translation>Redo</translation>
        </message>
        <message id="editor.cut">
            <source>Cut</source>
            <translation>Cut</translation>
        </message>
        <message id="editor.copy">
            <source>Copy</source>
            <translation>Copy</translation>
        </message>
        <message id="editor.paste">
            <source>Paste</source>
            <translation>Paste</translation>
        </message>
        <message id="editor.duplicate">
            <source>Duplicate</source>
            <translation>Duplicate</translation>
        </message>
        <message id="editor.delete">
            <source>Delete</source>
            <translation>Delete</translation>
        </message>
        <message id="editor.selectAll">
            <source>Select All</source>
            <translation>Select All</translation>
        </message>
        <message id="editor.bringForward">
            <source>Bring Forward</source>
            <translation>Bring Forward</translation>
        </message>
        <message id="editor.sendBackward">
            <source>Send Backward</source>
            <translation>Send Backward</translation>
        </message>
        <message id="editor.bringToFront">
            <source>Bring to Front</source>
            <translation>Bring to Front</translation>
        </message>
        <message id="editor.sendToBack">
            <source>Send to Back</source>
            <translation>Send to Back</translation>
        </message>
        <message id="editor.alignLeft">
            <source>Align Left Edges</source>
            <translation>Align Left Edges</translation>
        </message>
        <message id="editor.alignCenter">
            <source>Align Centers Horizontally</source>
            <translation>Align Centers Horizontally</translation>
        </message>
        <message id="editor.alignRight">
            <source>Align Right Edges</source>
            <translation>Align Right Edges</translation>
        </message>
        <message id="editor.alignTop">
            <source>Align Top Edges</source>
            <translation>Align Top Edges</translation>
        </message>
        <message id="editor.alignMiddle">
            <source>Align Centers Vertically</source>
            <translation>Align Centers Vertically</translation>
        </message>
        <message id="editor.alignBottom">
            <source>Align Bottom Edges</source>
            <translation>Align Bottom Edges</translation>
        </message>
        <message id="editor.resetCrop">
            <source>Reset Crop</source>
            <translation>Reset Crop</translation>
        </message>
        <message id="editor.addCapture">
            <source>Add Capture</source>
            <translation>Add Capture</translation>
        </message>
        <message id="editor.addPicture">
            <source>Add Picture…</source>
            <translation>Add Picture…</translation>
        </message>
        <message id="editor.backdrop">
            <source>Backdrop</source>
            <translation>Backdrop</translation>
        </message>
        <message id="editor.copyPicture">
            <source>Copy Picture</source>
            <translation>Copy Picture</translation>
        </message>
        <message id="editor.save">
            <source>Save</source>
            <translation>Save</translation>
        </message>
        <message id="editor.saveAs">
            <source>Save As…</source>
            <translation>Save As…</translation>
        </message>
        <message id="editor.print">
            <source>Print…</source>
            <translation>Print…</translation>
        </message>
        <message id="editor.pin">
            <source>Pin to Screen</source>
            <translation>Pin to Screen</translation>
        </message>
        <message id="editor.close">
            <source>Close</source>
            <translation>Close</translation>
        </message>
        <message id="editor.zoomIn">
            <source>Zoom In</source>
            <translation>Zoom In</translation>
        </message>
        <message id="editor.zoomOut">
            <source>Zoom Out</source>
            <translation>Zoom Out</translation>
        </message>
        <message id="editor.zoomToFit">
            <source>Fit to Window</source>
            <translation>Fit to Window</translation>
        </message>
        <message id="editor.actualSize">
            <source>Actual Size</source>
            <translation>Actual Size</translation>
        </message>
        <message id="editor.nextPart">
            <source>Next Part of the Window</source>
            <translation>Next Part of the Window</translation>
        </message>
        <message id="editor.more">
            <source>More</source>
            <translation>More</translation>
        </message>
        <message id="editor.shortcuts">
            <source>Keyboard Shortcuts</source>
            <translation>Keyboard Shortcuts</translation>
        </message>
        <message id="editor.group.tools">
            <source>Tools</source>
            <translation>Tools</translation>
        </message>
        <message id="editor.group.style">
            <source>Style</source>
            <translation>Style</translation>
        </message>
        <message id="editor.group.edit">
            <source>Edit</source>
            <translation>Edit</translation>
        </message>
        <message id="editor.group.arrange">
            <source>Arrange</source>
            <translation>Arrange</translation>
        </message>
        <message id="editor.group.picture">
            <source>Picture</source>
            <translation>Picture</translation>
        </message>
        <message id="editor.group.view">
            <source>View</source>
            <translation>View</translation>
        </message>
        <message id="editor.menu.order">
            <source>Order</source>
            <translation>Order</translation>
        </message>
        <message id="editor.menu.align">
            <source>Align</source>
            <translation>Align</translation>
        </message>
        <message id="editor.zoomPercent">
            <source>%1 %</source>
            <translation>%1 %</translation>
        </message>
        <message id="editor.size">
            <source>%1 × %2 px</source>
            <translation>%1 × %2 px</translation>
        </message>
        <message id="editor.selectionSize">
            <source>%1 × %2 at %3, %4</source>
            <translation>%1 × %2 at %3, %4</translation>
        </message>
        <message id="editor.sketchTooltip">
            <source>Hand-drawn</source>
            <translation>Hand-drawn</translation>
        </message>
        <message id="editor.fillTooltip">
            <source>Filled</source>
            <translation>Filled</translation>
        </message>
        <message id="editor.textStyleTooltip">
            <source>Text on a filled box</source>
            <translation>Text on a filled box</translation>
        </message>
        <message id="editor.textFontTooltip">
            <source>Handwriting</source>
            <translation>Handwriting</translation>
        </message>
        <message id="editor.blurStyle.hides">
            <source>Hides what is below it for good.</source>
            <translation>Hides what is below it for good.</translation>
        </message>
        <message id="editor.blurStyle.mosaic">
            <source>Mosaic</source>
            <translation>Mosaic</translation>
        </message>
        <message id="editor.blurStyle.erase">
            <source>Paint Over</source>
            <translation>Paint Over</translation>
        </message>
        <message id="editor.blurStyle.gaussian">
            <source>Blur</source>
            <translation>Blur</translation>
        </message>
        <message id="editor.blurStyle.gaussian.warning">
            <source>Decorates only: what is below can often be made readable again. Hide secrets with the other two.</source>
            <translation>Decorates only: what is below can often be made readable again. Hide secrets with the other two.</translation>
        </message>
        <message id="editor.blurStyleTooltip">
            <source>How it is hidden</source>
            <translation>How it is hidden</translation>
        </message>
        <message id="editor.blurFillColor">
            <source>Color it is painted over with</source>
            <translation>Color it is painted over with</translation>
        </message>
        <message id="editor.blurFillColor.automatic">
            <source>Take the color from around it</source>
            <translation>Take the color from around it</translation>
        </message>
        <message id="editor.blurStrength.gaussian">
            <source>Softness</source>
            <translation>Softness</translation>
        </message>
        <message id="editor.blurStrength.pixel">
            <source>Cell size</source>
            <translation>Cell size</translation>
        </message>
        <message id="editor.magnifierShape.circle">
            <source>Round</source>
            <translation>Round</translation>
        </message>
        <message id="editor.magnifierShape.roundedRect">
            <source>Rounded rectangle</source>
            <translation>Rounded rectangle</translation>
        </message>
        <message id="editor.magnifierShapeTooltip">
            <source>Shape of the lens</source>
            <translation>Shape of the lens</translation>
        </message>
        <message id="editor.magnificationTooltip">
            <source>Magnification</source>
            <translation>Magnification</translation>
        </message>
        <message id="editor.format.png">
            <source>PNG picture (*.png)</source>
            <translation>PNG picture (*.png)</translation>
        </message>
        <message id="editor.format.jpeg">
            <source>JPEG picture (*.jpg *.jpeg)</source>
            <translation>JPEG picture (*.jpg *.jpeg)</translation>
        </message>
        <message id="editor.format.webp">
            <source>WebP picture (*.webp)</source>
            <translation>WebP picture (*.webp)</translation>
        </message>
        <message id="editor.format.tiff">
            <source>TIFF picture (*.tiff *.tif)</source>
            <translation>TIFF picture (*.tiff *.tif)</translation>
        </message>
        <message id="editor.format.pdf">
            <source>PDF document (*.pdf)</source>
            <translation>PDF document (*.pdf)</translation>
        </message>
        <message id="pin.zoom">
            <source>Zoom</source>
            <translation>Zoom</translation>
        </message>
        <message id="pin.zoom.hint">
            <source>0 for the picture's own size</source>
            <translation>0 for the picture's own size</translation>
        </message>
        <message id="pin.copy">
            <source>Copy</source>
            <translation>Copy</translation>
        </message>
        <message id="pin.copy.hint">
            <source>Ctrl+C; drag it into another program</source>
            <translation>Ctrl+C; drag it into another program</translation>
        </message>
        <message id="pin.edit">
            <source>Edit</source>
            <translation>Edit</translation>
        </message>
        <message id="pin.more">
            <source>More</source>
            <translation>More</translation>
        </message>
        <message id="pin.close">
            <source>Close</source>
            <translation>Close</translation>
        </message>
        <message id="pin.percent">
            <source>%1 %</source>
            <translation>%1 %</translation>
        </message>
        <message id="pin.save">
            <source>Save</source>
            <translation>Save</translation>
        </message>
        <message id="pin.opacity">
            <source>Opacity</source>
            <translation>Opacity</translation>
        </message>
        <message id="pin.shadow">
            <source>Shadow</source>
            <translation>Shadow</translation>
        </message>
        <message id="pin.roundedCorners">
            <source>Rounded Corners</source>
            <translation>Rounded Corners</translation>
        </message>
        <message id="pin.clickThrough">
            <source>Let Clicks Through</source>
            <translation>Let Clicks Through</translation>
        </message>
        <message id="pin.closeAll">
            <source>Close All Pins</source>
            <translation>Close All Pins</translation>
        </message>
        <message id="pin.window">
            <source>Pinned picture</source>
            <translation>Pinned picture</translation>
        </message>
        <message id="pin.opacity.badge">
            <source>Opacity %1</source>
            <translation>Opacity %1</translation>
        </message>
        <message id="pin.clickThrough.began">
            <source>Clicks now go through the pin. The Vellora menu ends this.</source>
            <translation>Clicks now go through the pin. The Vellora menu ends this.</translation>
        </message>
        <message id="editor.shortcuts.lock">
            <source>Keep the Tool</source>
            <translation>Keep the Tool</translation>
        </message>
        <message id="editor.shortcuts.doubleClick">
            <source>double click</source>
            <translation>double click</translation>
        </message>
        <message id="editor.shortcuts.colors">
            <source>Colors</source>
            <translation>Colors</translation>
        </message>
        <message id="editor.shortcuts.pan">
            <source>Move the Picture</source>
            <translation>Move the Picture</translation>
        </message>
        <message id="editor.shortcuts.space">
            <source>Space</source>
            <translation>Space</translation>
        </message>
        <message id="editor.shortcuts.drag">
            <source>drag</source>
            <translation>drag</translation>
        </message>
        <message id="editor.cancel">
            <source>Cancel</source>
            <translation>Cancel</translation>
        </message>
        <message id="editor.zoom">
            <source>Zoom</source>
            <translation>Zoom</translation>
        </message>
        <message id="editor.moreStyle">
            <source>More of the style</source>
            <translation>More of the style</translation>
        </message>
        <message id="editor.width">
            <source>Width</source>
            <translation>Width</translation>
        </message>
        <message id="editor.width.preset">
            <source>Width %1</source>
            <translation>Width %1</translation>
        </message>
        <message id="color.plane">
            <source>Saturation and brightness</source>
            <translation>Saturation and brightness</translation>
        </message>
        <message id="color.hue">
            <source>Hue</source>
            <translation>Hue</translation>
        </message>
        <message id="color.opacity">
            <source>Opacity</source>
            <translation>Opacity</translation>
        </message>
        <message id="color.hex">
            <source>Color as a hexadecimal number</source>
            <translation>Color as a hexadecimal number</translation>
        </message>
        <message id="color.eyedropper">
            <source>Pick a color from the screen</source>
            <translation>Pick a color from the screen</translation>
        </message>
        <message id="editor.copiedSelection">
            <source>Copied the selection</source>
            <translation>Copied the selection</translation>
        </message>
        <message id="editor.distributeHorizontally">
            <source>Distribute Horizontally</source>
            <translation>Distribute Horizontally</translation>
        </message>
        <message id="editor.distributeVertically">
            <source>Distribute Vertically</source>
            <translation>Distribute Vertically</translation>
        </message>
        <message id="compress.compare.value">
            <source>%1 % before</source>
            <translation>%1 % before</translation>
        </message>
        <message id="compress.compare.selectOne">
            <source>Select an image to compare it with its result</source>
            <translation>Select an image to compare it with its result</translation>
        </message>
        <message id="compress.compare.before">
            <source>Before</source>
            <translation>Before</translation>
        </message>
        <message id="compress.compare.after">
            <source>After</source>
            <translation>After</translation>
        </message>
        <message id="compress.compare.fit">
            <source>Show the whole picture</source>
            <translation>Show the whole picture</translation>
        </message>
        <message id="compress.compare.actual">
            <source>Show at 100 %</source>
            <translation>Show at 100 %</translation>
        </message>
        <message id="compress.compare.zoom">
            <source>%1 %</source>
            <translation>%1 %</translation>
        </message>
        <message id="compress.compare.busy">
            <source>The result is being made</source>
            <translation>The result is being made</translation>
        </message>
        <message id="compress.compare.name">
            <source>Before and after</source>
            <translation>Before and after</translation>
        </message>
        <message id="compress.compare.help">
            <source>The arrow keys move the divider. B shows only the picture before.</source>
            <translation>The arrow keys move the divider. B shows only the picture before.</translation>
        </message>
        <message id="compress.drop.hint">
            <source>Drop images or folders here</source>
            <translation>Drop images or folders here</translation>
        </message>
        <message id="compress.drop.more">
            <source>or paste them with %1. Originals are never changed, and results are never larger.</source>
            <translation>or paste them with %1. Originals are never changed, and results are never larger.</translation>
        </message>
        <message id="compress.drop.choose">
            <source>Choose Images…</source>
            <translation>Choose Images…</translation>
        </message>
        <message id="compress.cancel">
            <source>Cancel</source>
            <translation>Cancel</translation>
        </message>
        <message id="compress.cancelTip">
            <source>Stop compressing (Esc)</source>
            <translation>Stop compressing (Esc)</translation>
        </message>
        <message id="compress.actionOne">
            <source>Compress 1 Image</source>
            <translation>Compress 1 Image</translation>
        </message>
        <message id="compress.actionMany">
            <source>Compress %1 Images</source>
            <translation>Compress %1 Images</translation>
        </message>
        <message id="compress.actionNone">
            <source>Compress</source>
            <translation>Compress</translation>
        </message>
        <message id="compress.progress.count">
            <source>%1 of %2</source>
            <translation>%1 of %2</translation>
        </message>
        <message id="compress.toast.failed" numerus="yes">
            <source>%n failed</source>
            <translation>
                <numerusform>%n failed</numerusform>
                <numerusform>%n failed</numerusform>
            </translation>
        </message>
        <message id="compress.row.keptTip">
            <source>Nothing smaller was found in this format and size</source>
            <translation>Nothing smaller was found in this format and size</translation>
        </message>
        <message id="compress.row.resultTip">
            <source>Result: %1</source>
            <translation>Result: %1</translation>
        </message>
        <message id="compress.row.flattenedTip">
            <source>This format cannot be transparent: the background became white</source>
            <translation>This format cannot be transparent: the background became white</translation>
        </message>
        <message id="compress.command.retry">
            <source>Try Again</source>
            <translation>Try Again</translation>
        </message>
        <message id="compress.command.reveal">
            <source>Show Result in Folder</source>
            <translation>Show Result in Folder</translation>
        </message>
        <message id="compress.command.remove">
            <source>Remove from List</source>
            <translation>Remove from List</translation>
        </message>
        <message id="compress.list">
            <source>Images</source>
            <translation>Images</translation>
        </message>
        <message id="compress.settingsTitle">
            <source>Settings</source>
            <translation>Settings</translation>
        </message>
        <message id="compress.label.format">
            <source>Format</source>
            <translation>Format</translation>
        </message>
        <message id="compress.format.original">
            <source>Original</source>
            <translation>Original</translation>
        </message>
        <message id="compress.format.originalTip">
            <source>Every image keeps its format</source>
            <translation>Every image keeps its format</translation>
        </message>
        <message id="compress.format.jpegTip">
            <source>For photos; no transparency</source>
            <translation>For photos; no transparency</translation>
        </message>
        <message id="compress.format.pngTip">
            <source>Exact to the pixel; for screenshots and drawings</source>
            <translation>Exact to the pixel; for screenshots and drawings</translation>
        </message>
        <message id="compress.format.webpTip">
            <source>Smallest, for the web; keeps transparency</source>
            <translation>Smallest, for the web; keeps transparency</translation>
        </message>
        <message id="compress.label.quality">
            <source>Quality</source>
            <translation>Quality</translation>
        </message>
        <message id="compress.quality.percent">
            <source>%1%</source>
            <translation>%1%</translation>
        </message>
        <message id="compress.quality.unused">
            <source>Nothing is lost in these formats, so quality changes nothing.</source>
            <translation>Nothing is lost in these formats, so quality changes nothing.</translation>
        </message>
        <message id="compress.label.resize">
            <source>Resize</source>
            <translation>Resize</translation>
        </message>
        <message id="compress.resize.fixed">
            <source>%1 – at most %2 px</source>
            <translation>%1 – at most %2 px</translation>
        </message>
        <message id="compress.resize.off">
            <source>Off</source>
            <translation>Off</translation>
        </message>
        <message id="compress.resize.custom">
            <source>Custom</source>
            <translation>Custom</translation>
        </message>
        <message id="compress.resize.customTip">
            <source>Longest edge in pixels. Smaller images stay as they are.</source>
            <translation>Longest edge in pixels. Smaller images stay as they are.</translation>
        </message>
        <message id="compress.resize.pixels">
            <source>pixels</source>
            <translation>pixels</translation>
        </message>
        <message id="compress.label.output">
            <source>Save results</source>
            <translation>Save results</translation>
        </message>
        <message id="compress.output.source">
            <source>Beside the originals</source>
            <translation>Beside the originals</translation>
        </message>
        <message id="compress.output.custom">
            <source>In another folder</source>
            <translation>In another folder</translation>
        </message>
        <message id="compress.output.choose">
            <source>Choose…</source>
            <translation>Choose…</translation>
        </message>
        <message id="compress.output.chooseTitle">
            <source>Choose a folder for the results</source>
            <translation>Choose a folder for the results</translation>
        </message>
        <message id="compress.keepMetadata">
            <source>Keep metadata</source>
            <translation>Keep metadata</translation>
        </message>
        <message id="compress.keepMetadataHelp">
            <source>Camera, place, author. Off: nobody learns where a photo was taken.</source>
            <translation>Camera, place, author. Off: nobody learns where a photo was taken.</translation>
        </message>
        <message id="compress.keepDates">
            <source>Keep dates</source>
            <translation>Keep dates</translation>
        </message>
        <message id="compress.keepDatesHelp">
            <source>Results get the file dates of their originals.</source>
            <translation>Results get the file dates of their originals.</translation>
        </message>
        <message id="compress.row.kept">
            <source>Kept as it was</source>
            <translation>Kept as it was</translation>
        </message>
        <message id="compress.row.metadataRemoved">
            <source>Only metadata removed</source>
            <translation>Only metadata removed</translation>
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
            <translation>%1% smaller</translation>
        </message>
        <message id="compress.row.larger">
            <source>%1% larger</source>
            <translation>%1% larger</translation>
        </message>
        <message id="compress.row.pixels">
            <source>%1 × %2</source>
            <translation>%1 × %2</translation>
        </message>
        <message id="compress.progress.secondsLeft" numerus="yes">
            <source>%n second(s) left</source>
            <translation>
                <numerusform>%n second left</numerusform>
                <numerusform>%n seconds left</numerusform>
            </translation>
        </message>
        <message id="compress.progress.minutesLeft" numerus="yes">
            <source>%n minute(s) left</source>
            <translation>
                <numerusform>%n minute left</numerusform>
                <numerusform>%n minutes left</numerusform>
            </translation>
        </message>
        <message id="compress.failure.notFound">
            <source>The file is no longer there</source>
            <translation>The file is no longer there</translation>
        </message>
        <message id="compress.failure.notPermitted">
            <source>You are not allowed to read or write here</source>
            <translation>You are not allowed to read or write here</translation>
        </message>
        <message id="compress.failure.notAFile">
            <source>This is not a file</source>
            <translation>This is not a file</translation>
        </message>
        <message id="compress.failure.notAPicture">
            <source>This is not an image</source>
            <translation>This is not an image</translation>
        </message>
        <message id="compress.failure.tooLarge">
            <source>The image is too large</source>
            <translation>The image is too large</translation>
        </message>
        <message id="compress.failure.unsupported">
            <source>This kind of image is not supported</source>
            <translation>This kind of image is not supported</translation>
        </message>
        <message id="compress.failure.animated">
            <source>Animations and pages can only keep their format and size</source>
            <translation>Animations and pages can only keep their format and size</translation>
        </message>
        <message id="compress.failure.damaged">
            <source>The file is damaged</source>
            <translation>The file is damaged</translation>
        </message>
        <message id="compress.failure.outOfMemory">
            <source>There is not enough memory</source>
            <translation>There is not enough memory</translation>
        </message>
        <message id="compress.failure.cannotEncode">
            <source>The image does not fit this format</source>
            <translation>The image does not fit this format</translation>
        </message>
        <message id="compress.failure.diskFull">
            <source>The disk is full</source>
            <translation>The disk is full</translation>
        </message>
        <message id="compress.failure.writeFailed">
            <source>The result could not be written</source>
            <translation>The result could not be written</translation>
        </message>
        <message id="compress.row.cancelled">
            <source>Stopped</source>
            <translation>Stopped</translation>
        </message>
        <message id="compress.row.sizes">
            <source>%1 → %2</source>
            <translation>%1 → %2</translation>
        </message>
        <message id="compress.row.running">
            <source>Compressing…</source>
            <translation>Compressing…</translation>
        </message>
        <message id="compress.row.same">
            <source>Same size</source>
            <translation>Same size</translation>
        </message>
        <message id="compress.row.failed">
            <source>Failed</source>
            <translation>Failed</translation>
        </message>
        <message id="compress.badge.fullSize">
            <source>Full size</source>
            <translation>Full size</translation>
        </message>
        <message id="compress.badge.maxEdge">
            <source>At most %1 px</source>
            <translation>At most %1 px</translation>
        </message>
        <message id="compress.badge.sourceFolder">
            <source>Source folder</source>
            <translation>Source folder</translation>
        </message>
        <message id="compress.title">
            <source>Compress Images</source>
            <translation>Compress Images</translation>
        </message>
        <message id="compress.command.addImages">
            <source>Add Images…</source>
            <translation>Add Images…</translation>
        </message>
        <message id="compress.command.addFolder">
            <source>Add Folder…</source>
            <translation>Add Folder…</translation>
        </message>
        <message id="compress.command.paste">
            <source>Paste</source>
            <translation>Paste</translation>
        </message>
        <message id="compress.command.compare">
            <source>Compare Before and After</source>
            <translation>Compare Before and After</translation>
        </message>
        <message id="compress.command.clear">
            <source>Remove All</source>
            <translation>Remove All</translation>
        </message>
        <message id="compress.command.settings">
            <source>Show or Hide Settings</source>
            <translation>Show or Hide Settings</translation>
        </message>
        <message id="compress.add">
            <source>Add</source>
            <translation>Add</translation>
        </message>
        <message id="compress.addTip">
            <source>Add images, folders, or captures</source>
            <translation>Add images, folders, or captures</translation>
        </message>
        <message id="compress.key.space">
            <source>Space</source>
            <translation>Space</translation>
        </message>
        <message id="compress.toast.nothingToPaste">
            <source>There is no image on the clipboard</source>
            <translation>There is no image on the clipboard</translation>
        </message>
        <message id="compress.pastedName">
            <source>Pasted Image %1</source>
            <translation>Pasted Image %1</translation>
        </message>
        <message id="compress.toast.nothingFound">
            <source>No new images were found there</source>
            <translation>No new images were found there</translation>
        </message>
        <message id="compress.looking">
            <source>Looking for images…</source>
            <translation>Looking for images…</translation>
        </message>
        <message id="compress.summary.count" numerus="yes">
            <source>%n image(s)</source>
            <translation>
                <numerusform>%n image</numerusform>
                <numerusform>%n images</numerusform>
            </translation>
        </message>
        <message id="compress.addImages.title">
            <source>Add images</source>
            <translation>Add images</translation>
        </message>
        <message id="compress.addImages.filter">
            <source>Images (%1)</source>
            <translation>Images (%1)</translation>
        </message>
        <message id="compress.addImages.allFiles">
            <source>All files (*)</source>
            <translation>All files (*)</translation>
        </message>
        <message id="compress.addFolder.title">
            <source>Add a folder of images</source>
            <translation>Add a folder of images</translation>
        </message>
        <message id="compress.command.captures">
            <source>Recent Captures</source>
            <translation>Recent Captures</translation>
        </message>
        <message id="compress.toast.done" numerus="yes">
            <source>%n image(s) compressed</source>
            <translation>
                <numerusform>%n image compressed</numerusform>
                <numerusform>%n images compressed</numerusform>
            </translation>
        </message>
        <message id="compress.toast.savedPercent">
            <source>%1 saved (%2%)</source>
            <translation>%1 saved (%2%)</translation>
        </message>
        <message id="compress.toast.stopped" numerus="yes">
            <source>%n stopped</source>
            <translation>
                <numerusform>%n stopped</numerusform>
                <numerusform>%n stopped</numerusform>
            </translation>
        </message>
        <message id="editor.compress">
            <source>Compress…</source>
            <translation>Compress…</translation>
        </message>
        <message id="recording.bar.level">
            <source>Level of the microphone</source>
            <translation>Level of the microphone</translation>
        </message>
        <message id="recording.bar.device">
            <source>%1: %2</source>
            <translation>%1: %2</translation>
        </message>
        <message id="recording.bar.start">
            <source>Start</source>
            <translation>Start</translation>
        </message>
        <message id="recording.bar.startTip">
            <source>Start recording (Return)</source>
            <translation>Start recording (Return)</translation>
        </message>
        <message id="recording.camera.close">
            <source>Turn the camera off</source>
            <translation>Turn the camera off</translation>
        </message>
        <message id="recording.camera">
            <source>Camera</source>
            <translation>Camera</translation>
        </message>
        <message id="recording.camera.help">
            <source>Drag to move, turn the wheel to resize</source>
            <translation>Drag to move, turn the wheel to resize</translation>
        </message>
        <message id="recording.bar.resume">
            <source>Resume</source>
            <translation>Resume</translation>
        </message>
        <message id="recording.bar.pause">
            <source>Pause</source>
            <translation>Pause</translation>
        </message>
        <message id="recording.bar.sound.on">
            <source>Sound of the computer: on</source>
            <translation>Sound of the computer: on</translation>
        </message>
        <message id="recording.bar.sound.off">
            <source>Sound of the computer: off</source>
            <translation>Sound of the computer: off</translation>
        </message>
        <message id="recording.bar.keys.on">
            <source>Keystrokes are recorded</source>
            <translation>Keystrokes are recorded</translation>
        </message>
        <message id="recording.bar.keys.off">
            <source>Keystrokes are not recorded</source>
            <translation>Keystrokes are not recorded</translation>
        </message>
        <message id="recording.bar.startingIn">
            <source>Starting in %1</source>
            <translation>Starting in %1</translation>
        </message>
        <message id="recording.bar.starting">
            <source>Starting…</source>
            <translation>Starting…</translation>
        </message>
        <message id="recording.bar">
            <source>Recording</source>
            <translation>Recording</translation>
        </message>
        <message id="recording.bar.mic">
            <source>Microphone</source>
            <translation>Microphone</translation>
        </message>
        <message id="recording.bar.mic.none">
            <source>No microphone</source>
            <translation>No microphone</translation>
        </message>
        <message id="recording.bar.camera">
            <source>Camera</source>
            <translation>Camera</translation>
        </message>
        <message id="recording.bar.camera.none">
            <source>No camera</source>
            <translation>No camera</translation>
        </message>
        <message id="recording.bar.cancel">
            <source>Cancel</source>
            <translation>Cancel</translation>
        </message>
        <message id="recording.bar.elapsed">
            <source>Recorded time</source>
            <translation>Recorded time</translation>
        </message>
        <message id="recording.bar.stop">
            <source>Stop and keep the recording</source>
            <translation>Stop and keep the recording</translation>
        </message>
        <message id="recording.bar.close">
            <source>Close</source>
            <translation>Close</translation>
        </message>
        <message id="recording.bar.keys.hidden">
            <source>A password is being typed: keystrokes are not recorded</source>
            <translation>A password is being typed: keystrokes are not recorded</translation>
        </message>
        <message id="recording.countdown" numerus="yes">
            <source>Recording starts in %n second(s)</source>
            <translation>
                <numerusform>Recording starts in %n second</numerusform>
                <numerusform>Recording starts in %n seconds</numerusform>
            </translation>
        </message>
        <message id="alert.ok">
            <source>OK</source>
            <translation>OK</translation>
        </message>
        <message id="recording.error.writerSetupFailed">
            <source>Failed to set up the video writer.</source>
            <translation>Failed to set up the video writer.</translation>
        </message>
        <message id="recording.error.writeFailed">
            <source>Failed to write the recording.</source>
            <translation>Failed to write the recording.</translation>
        </message>
        <message id="recording.error.displayNotFound">
            <source>Could not find the display to record.</source>
            <translation>Could not find the display to record.</translation>
        </message>
        <message id="recording.error.windowNotFound">
            <source>Could not find the window to record.</source>
            <translation>Could not find the window to record.</translation>
        </message>
        <message id="recording.error.micNotFound">
            <source>Could not find the selected microphone.</source>
            <translation>Could not find the selected microphone.</translation>
        </message>
        <message id="recording.error.cameraNotFound">
            <source>Could not find the selected camera.</source>
            <translation>Could not find the selected camera.</translation>
        </message>
        <message id="toast.recordingFailed">
            <source>The recording could not be kept</source>
            <translation>The recording could not be kept</translation>
        </message>
        <message id="record.keyboard.saveFailed">
            <source>The recording is complete, but its keystrokes could not be saved</source>
            <translation>The recording is complete, but its keystrokes could not be saved</translation>
        </message>
        <message id="recording.mic.unavailable">
            <source>The microphone cannot be used: recording without it</source>
            <translation>The microphone cannot be used: recording without it</translation>
        </message>
        <message id="recording.mic.lost">
            <source>The microphone is gone: the recording goes on without sound from it</source>
            <translation>The microphone is gone: the recording goes on without sound from it</translation>
        </message>
        <message id="recording.camera.lost">
            <source>The camera is gone: the recording goes on without it</source>
            <translation>The camera is gone: the recording goes on without it</translation>
        </message>
        <message id="recording.disk.low">
            <source>The disk has room for about five more minutes of recording</source>
            <translation>The disk has room for about five more minutes of recording</translation>
        </message>
        <message id="recording.disk.full">
            <source>The recording was stopped because the disk is nearly full. Everything so far is kept.</source>
            <translation>The recording was stopped because the disk is nearly full. Everything so far is kept.</translation>
        </message>
        <message id="recording.stopped">
            <source>What was being recorded is gone. The recording up to then is kept.</source>
            <translation>What was being recorded is gone. The recording up to then is kept.</translation>
        </message>
        <message id="record.keyboard.permission.title">
            <source>Keystrokes cannot be recorded</source>
            <translation>Keystrokes cannot be recorded</translation>
        </message>
        <message id="record.keyboard.permission.body">
            <source>This desktop does not let programs see which keys are pressed. The rest is recorded as usual.</source>
            <translation>This desktop does not let programs see which keys are pressed. The rest is recorded as usual.</translation>
        </message>
        <message id="alert.importVideo.unreadable.title">
            <source>This file cannot be read as a video</source>
            <translation>This file cannot be read as a video</translation>
        </message>
        <message id="recording.startFailed">
            <source>The recording could not be started</source>
            <translation>The recording could not be started</translation>
        </message>
        <message id="recording.region.fullDisplay">
            <source>Full display</source>
            <translation>Full display</translation>
        </message>
        <message id="recording.region.square">
            <source>Square</source>
            <translation>Square</translation>
        </message>
        <message id="recording.region.presets">
            <source>Sizes and shapes</source>
            <translation>Sizes and shapes</translation>
        </message>
        <message id="recording.region.badge">
            <source>Size of the recording; drag to move it</source>
            <translation>Size of the recording; drag to move it</translation>
        </message>
        <message id="recording.region.sizes">
            <source>%1 px · %2 pt</source>
            <translation>%1 px · %2 pt</translation>
        </message>
        <message id="toast.recordingsRecovered" numerus="yes">
            <source>%n interrupted recording(s) saved: look under Recent Recordings</source>
            <translation>
                <numerusform>%n interrupted recording saved: look under Recent Recordings</numerusform>
                <numerusform>%n interrupted recordings saved: look under Recent Recordings</numerusform>
            </translation>
        </message>
        <message id="toast.recordingNotOpened">
            <source>This recording cannot be opened: it has no movie</source>
            <translation>This recording cannot be opened: it has no movie</translation>
        </message>
        <message id="record.source.region">
            <source>Region</source>
            <translation>Region</translation>
        </message>
        <message id="record.source.window">
            <source>Window</source>
            <translation>Window</translation>
        </message>
        <message id="record.source.fullscreen">
            <source>Full screen</source>
            <translation>Full screen</translation>
        </message>
        <message id="import.video.title">
            <source>Import a video</source>
            <translation>Import a video</translation>
        </message>
        <message id="import.video.filter">
            <source>Videos (%1)</source>
            <translation>Videos (%1)</translation>
        </message>
        <message id="import.video.all">
            <source>All files (*)</source>
            <translation>All files (*)</translation>
        </message>
        <message id="toast.importingVideo">
            <source>Importing the video…</source>
            <translation>Importing the video…</translation>
        </message>
        <message id="toast.importNotCopied">
            <source>The video could not be copied into the recordings folder</source>
            <translation>The video could not be copied into the recordings folder</translation>
        </message>
        <message id="player.picture">
            <source>Picture</source>
            <translation>Picture</translation>
        </message>
        <message id="player.play">
            <source>Play</source>
            <translation>Play</translation>
        </message>
        <message id="player.sound">
            <source>Sound</source>
            <translation>Sound</translation>
        </message>
        <message id="player.reveal">
            <source>Show in Folder</source>
            <translation>Show in Folder</translation>
        </message>
        <message id="player.notPlayable">
            <source>The movie of this recording cannot be played. Its folder may still hold what was recorded.</source>
            <translation>The movie of this recording cannot be played. Its folder may still hold what was recorded.</translation>
        </message>
        <message id="player.pause">
            <source>Pause</source>
            <translation>Pause</translation>
        </message>
        <message id="player.position">
            <source>Position</source>
            <translation>Position</translation>
        </message>
        <message id="recording.systemSound.unavailable">
            <source>This computer's sound cannot be recorded: the recording goes on without it</source>
            <translation>This computer's sound cannot be recorded: the recording goes on without it</translation>
        </message>
        <message id="recording.camera.unavailable">
            <source>The camera cannot be used: recording without it</source>
            <translation>The camera cannot be used: recording without it</translation>
        </message>
        <message id="recording.mic.returned">
            <source>The microphone is back and recorded again</source>
            <translation>The microphone is back and recorded again</translation>
        </message>
        <message id="recording.systemSound.returned">
            <source>This computer's sound is recorded again</source>
            <translation>This computer's sound is recorded again</translation>
        </message>
    </context>
</TS>
