<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>
    <message id="toast.noTray">
        <source>Vellora is running. This desktop has no tray: start Vellora again to see its commands.</source>
        <translation>Vellora läuft. Diese Arbeitsumgebung hat keinen Infobereich: Starten Sie Vellora erneut, um die Befehle zu sehen.</translation>
    </message>
    <message id="toast.reopenFailed">
        <source>This capture can no longer be read</source>
        <translation>Diese Aufnahme kann nicht mehr gelesen werden</translation>
    </message>
    <message id="alert.clearHistory.title">
        <source>Clear the capture history?</source>
        <translation>Verlauf der Aufnahmen leeren?</translation>
    </message>
    <message id="alert.clearHistory.body">
        <source>The recent captures will be deleted. Saved files stay where they are.</source>
        <translation>Die letzten Aufnahmen werden gelöscht. Gespeicherte Dateien bleiben, wo sie sind.</translation>
    </message>
    <message id="alert.clearHistory.confirm">
        <source>Clear History</source>
        <translation>Verlauf leeren</translation>
    </message>
    <message id="alert.cancel">
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message id="load.file.title">
        <source>Open a picture</source>
        <translation>Bild öffnen</translation>
    </message>
    <message id="load.file.filter">
        <source>Pictures (%1)</source>
        <translation>Bilder (%1)</translation>
    </message>
    <message id="alert.cleanupRecordings.title" numerus="yes">
        <source>Move %n recording(s) to the Trash?</source>
        <translation>
            <numerusform>%n Aufzeichnung in den Papierkorb verschieben?</numerusform>
            <numerusform>%n Aufzeichnungen in den Papierkorb verschieben?</numerusform>
        </translation>
    </message>
    <message id="alert.cleanupRecordings.body">
        <source>They take up %1.</source>
        <translation>Belegter Speicherplatz: %1.</translation>
    </message>
    <message id="alert.cleanupRecordings.openNote">
        <source>Recordings that are open stay.</source>
        <translation>Geöffnete Aufzeichnungen bleiben erhalten.</translation>
    </message>
    <message id="alert.cleanupRecordings.confirm">
        <source>Move to Trash</source>
        <translation>In den Papierkorb verschieben</translation>
    </message>
    <message id="toast.recordingsTrashed">
        <source>Recordings moved to the Trash</source>
        <translation>Aufzeichnungen in den Papierkorb verschoben</translation>
    </message>
    <message id="alert.screenRecording.title">
        <source>Vellora is not allowed to see the screen</source>
        <translation>Vellora darf den Bildschirm nicht sehen</translation>
    </message>
    <message id="alert.screenRecording.body">
        <source>Allow Vellora to record the screen in the desktop&apos;s privacy settings, then try again.</source>
        <translation>Erlauben Sie Vellora in den Datenschutzeinstellungen der Arbeitsumgebung, den Bildschirm aufzuzeichnen, und versuchen Sie es dann erneut.</translation>
    </message>
    <message id="alert.accessibility.title">
        <source>Vellora is not allowed to follow the pointer</source>
        <translation>Vellora darf dem Mauszeiger nicht folgen</translation>
    </message>
    <message id="alert.accessibility.body">
        <source>Allow Vellora to use accessibility in the desktop&apos;s privacy settings, then try again.</source>
        <translation>Erlauben Sie Vellora in den Datenschutzeinstellungen der Arbeitsumgebung, die Bedienungshilfen zu verwenden, und versuchen Sie es dann erneut.</translation>
    </message>
    <message id="alert.screenRecording.open">
        <source>Open Settings</source>
        <translation>Einstellungen öffnen</translation>
    </message>
    <message id="load.error.noPicture">
        <source>No picture could be read from the clipboard</source>
        <translation>Aus der Zwischenablage konnte kein Bild gelesen werden</translation>
    </message>
    <message id="settings.about.title">
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message id="settings.about.summary">
        <source>Screenshots, recordings and live streams</source>
        <translation>Bildschirmfotos, Aufzeichnungen und Livestreams</translation>
    </message>
    <message id="settings.about.version">
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message id="settings.about.licence">
        <source>Licence</source>
        <translation>Lizenz</translation>
    </message>
    <message id="settings.about.website">
        <source>Website</source>
        <translation>Website</translation>
    </message>
    <message id="settings.about.issues">
        <source>Report a problem</source>
        <translation>Problem melden</translation>
    </message>
    <message id="settings.about.licences">
        <source>Licences of fonts, icons and libraries</source>
        <translation>Lizenzen der Schriften, Symbole und Bibliotheken</translation>
    </message>
    <message id="settings.general.title">
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message id="settings.general.afterCapture">
        <source>After a capture</source>
        <translation>Nach einer Aufnahme</translation>
    </message>
    <message id="settings.clipboard.title">
        <source>Clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
    <message id="settings.clipboard.copyAs">
        <source>Copy captures as</source>
        <translation>Aufnahmen kopieren als</translation>
    </message>
    <message id="settings.clipboard.info">
        <source>Some programs paste files, others paste pictures. With both, each takes the one it understands.</source>
        <translation>Manche Programme fügen Dateien ein, andere Bilder. Mit beidem nimmt jedes, was es versteht.</translation>
    </message>
    <message id="settings.general.saving">
        <source>Saving</source>
        <translation>Speichern</translation>
    </message>
    <message id="settings.general.saveFolder">
        <source>Folder for captures</source>
        <translation>Ordner für Aufnahmen</translation>
    </message>
    <message id="settings.general.choose">
        <source>Choose…</source>
        <translation>Auswählen&#xa0;…</translation>
    </message>
    <message id="settings.general.resetDesktop">
        <source>Use Desktop Folder</source>
        <translation>Schreibtisch verwenden</translation>
    </message>
    <message id="settings.general.resetDesktopHelp">
        <source>Save captures to the Desktop folder again</source>
        <translation>Aufnahmen wieder im Ordner „Schreibtisch“ speichern</translation>
    </message>
    <message id="settings.general.language">
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message id="settings.general.interfaceLanguage">
        <source>Language of the interface</source>
        <translation>Sprache der Oberfläche</translation>
    </message>
    <message id="settings.general.systemLanguage">
        <source>System language</source>
        <translation>Systemsprache</translation>
    </message>
    <message id="settings.general.keepOneAction">
        <source>At least one action has to stay on.</source>
        <translation>Mindestens eine Aktion muss eingeschaltet bleiben.</translation>
    </message>
    <message id="settings.general.chooseTitle">
        <source>Choose a folder for captures</source>
        <translation>Ordner für Aufnahmen auswählen</translation>
    </message>
    <message id="settings.general.showEditor">
        <source>Open in the editor</source>
        <translation>Im Editor öffnen</translation>
    </message>
    <message id="settings.general.copy">
        <source>Copy to the clipboard</source>
        <translation>In die Zwischenablage kopieren</translation>
    </message>
    <message id="settings.general.save">
        <source>Save as a file</source>
        <translation>Als Datei speichern</translation>
    </message>
    <message id="settings.general.pin">
        <source>Pin to the screen</source>
        <translation>Auf dem Bildschirm anheften</translation>
    </message>
    <message id="settings.general.showEditorHelp">
        <source>In the editor, ready to be annotated.</source>
        <translation>Im Editor, bereit für Anmerkungen.</translation>
    </message>
    <message id="settings.general.copyHelp">
        <source>Ready to be pasted into another program.</source>
        <translation>Bereit zum Einfügen in ein anderes Programm.</translation>
    </message>
    <message id="settings.general.saveHelp">
        <source>As a PNG picture in the folder below.</source>
        <translation>Als PNG-Bild im unten angegebenen Ordner.</translation>
    </message>
    <message id="settings.general.pinHelp">
        <source>It stays above all windows. Takes the place of the editor.</source>
        <translation>Bleibt über allen Fenstern und ersetzt das Öffnen im Editor.</translation>
    </message>
    <message id="settings.clipboard.fileAndImage">
        <source>File and picture</source>
        <translation>Datei und Bild</translation>
    </message>
    <message id="settings.clipboard.fileOnly">
        <source>File only</source>
        <translation>Nur Datei</translation>
    </message>
    <message id="settings.clipboard.imageOnly">
        <source>Picture only</source>
        <translation>Nur Bild</translation>
    </message>
    <message id="settings.shortcuts.title">
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message id="settings.title">
        <source>Vellora Settings</source>
        <translation>Vellora-Einstellungen</translation>
    </message>
    <message id="settings.pages">
        <source>Settings pages</source>
        <translation>Einstellungsseiten</translation>
    </message>
    <message id="shortcut.recording">
        <source>Press the keys…</source>
        <translation>Tasten drücken&#xa0;…</translation>
    </message>
    <message id="shortcut.recordingHelp">
        <source>Press the new combination. Esc stops, Delete goes back to the default.</source>
        <translation>Drücken Sie die neue Kombination. Esc bricht ab, Entf stellt den Standard wieder her.</translation>
    </message>
    <message id="shortcut.none">
        <source>None</source>
        <translation>Keines</translation>
    </message>
    <message id="shortcut.startHelp">
        <source>Click to record another combination</source>
        <translation>Klicken, um eine andere Kombination festzulegen</translation>
    </message>
    <message id="settings.shortcuts.conflict">
        <source>%1 already belongs to “%2”.</source>
        <translation>%1 gehört bereits zu „%2“.</translation>
    </message>
    <message id="settings.shortcuts.group">
        <source>Global shortcuts</source>
        <translation>Globale Tastenkürzel</translation>
    </message>
    <message id="settings.shortcuts.info">
        <source>They work in every program. Click a shortcut and press the new combination: with Ctrl, Alt or Super, or a function key alone.</source>
        <oldsource>They work in every program. Click a shortcut, then press the new combination: with Ctrl, Alt or Super, or a
</oldsource>
        <translation>Sie gelten in jedem Programm. Klicken Sie auf ein Tastenkürzel und drücken Sie die neue Kombination: mit Strg, Alt oder Super, oder eine Funktionstaste allein.</translation>
    </message>
    <message id="shortcut.reset">
        <source>Back to the default</source>
        <translation>Standard wiederherstellen</translation>
    </message>
    <message id="settings.shortcuts.heldElsewhere">
        <source>Another program holds %1. Choose another combination, or free it there.</source>
        <translation>%1 wird von einem anderen Programm verwendet. Wählen Sie eine andere Kombination oder geben Sie diese dort frei.</translation>
    </message>
    <message id="settings.shortcuts.fnHint">
        <source>If the F-keys of this keyboard do something else, hold Fn as well.</source>
        <translation>Wenn die F-Tasten dieser Tastatur etwas anderes tun, halten Sie zusätzlich Fn gedrückt.</translation>
    </message>
    <message id="menu.captureArea">
        <source>Capture Area</source>
        <translation>Bereich aufnehmen</translation>
    </message>
    <message id="menu.captureWindow">
        <source>Capture Window</source>
        <translation>Fenster aufnehmen</translation>
    </message>
    <message id="menu.captureFullscreen">
        <source>Capture Full Screen</source>
        <translation>Vollbild aufnehmen</translation>
    </message>
    <message id="menu.captureScrolling">
        <source>Capture Scrolling Page</source>
        <translation>Scrollbare Seite aufnehmen</translation>
    </message>
    <message id="menu.captureText">
        <source>Capture Text</source>
        <translation>Text aufnehmen</translation>
    </message>
    <message id="menu.moreCaptures">
        <source>More Captures</source>
        <translation>Weitere Aufnahmen</translation>
    </message>
    <message id="menu.captureElement">
        <source>Capture Element</source>
        <translation>Element aufnehmen</translation>
    </message>
    <message id="menu.captureAreaSized">
        <source>Capture Fixed Size…</source>
        <translation>Feste Größe aufnehmen&#xa0;…</translation>
    </message>
    <message id="menu.captureFullscreenDelayed">
        <source>Capture Full Screen in 3 Seconds</source>
        <translation>Vollbild in 3&#xa0;Sekunden aufnehmen</translation>
    </message>
    <message id="menu.loadFromClipboard">
        <source>Load from Clipboard</source>
        <translation>Aus Zwischenablage laden</translation>
    </message>
    <message id="menu.loadFromFile">
        <source>Load from File…</source>
        <translation>Aus Datei laden&#xa0;…</translation>
    </message>
    <message id="menu.reopen">
        <source>Reopen Last Capture</source>
        <translation>Letzte Aufnahme öffnen</translation>
    </message>
    <message id="menu.reopenMore">
        <source>Recent Captures</source>
        <translation>Letzte Aufnahmen</translation>
    </message>
    <message id="menu.clearHistory">
        <source>Clear History…</source>
        <translation>Verlauf leeren&#xa0;…</translation>
    </message>
    <message id="menu.compressImages">
        <source>Compress Images…</source>
        <translation>Bilder komprimieren&#xa0;…</translation>
    </message>
    <message id="menu.recordRegion">
        <source>Record Area</source>
        <translation>Bereich aufzeichnen</translation>
    </message>
    <message id="menu.stopRecording">
        <source>Stop Recording</source>
        <translation>Aufzeichnung beenden</translation>
    </message>
    <message id="menu.pauseRecording">
        <source>Pause Recording</source>
        <translation>Aufzeichnung anhalten</translation>
    </message>
    <message id="menu.resumeRecording">
        <source>Resume Recording</source>
        <translation>Aufzeichnung fortsetzen</translation>
    </message>
    <message id="menu.recordWindow">
        <source>Record Window</source>
        <translation>Fenster aufzeichnen</translation>
    </message>
    <message id="menu.recordFullscreen">
        <source>Record Full Screen</source>
        <translation>Vollbild aufzeichnen</translation>
    </message>
    <message id="menu.recentRecordings">
        <source>Recent Recordings</source>
        <translation>Letzte Aufzeichnungen</translation>
    </message>
    <message id="menu.openRecordingsFolder">
        <source>Open Recordings Folder</source>
        <translation>Ordner mit Aufzeichnungen öffnen</translation>
    </message>
    <message id="menu.cleanupRecordings">
        <source>Clean Up Recordings…</source>
        <translation>Aufzeichnungen aufräumen&#xa0;…</translation>
    </message>
    <message id="menu.importVideo">
        <source>Import Video…</source>
        <translation>Video importieren&#xa0;…</translation>
    </message>
    <message id="menu.startLive">
        <source>Go Live…</source>
        <translation>Livestream starten&#xa0;…</translation>
    </message>
    <message id="menu.stopLive">
        <source>Stop Live</source>
        <translation>Livestream beenden</translation>
    </message>
    <message id="menu.settings">
        <source>Settings…</source>
        <translation>Einstellungen&#xa0;…</translation>
    </message>
    <message id="menu.quit">
        <source>Quit Vellora</source>
        <translation>Vellora beenden</translation>
    </message>
    <message id="toast.copiedAndSavedTo">
        <source>Copied and saved to %1</source>
        <translation>Kopiert und gespeichert in %1</translation>
    </message>
    <message id="toast.copied">
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message id="toast.savedTo">
        <source>Saved to %1</source>
        <translation>Gespeichert in %1</translation>
    </message>
    <message id="toast.captureOutputFailed">
        <source>Copying or saving failed; the capture is kept in the history</source>
        <translation>Kopieren oder Speichern fehlgeschlagen; die Aufnahme bleibt im Verlauf</translation>
    </message>
    <message id="toast.saveFailed">
        <source>Saving to %1 failed; the capture is kept in the history</source>
        <translation>Speichern in %1 fehlgeschlagen; die Aufnahme bleibt im Verlauf</translation>
    </message>
    <message id="countdown.help">
        <source>Capture in a moment. Click or press Escape to cancel.</source>
        <translation>Gleich erfolgt die Aufnahme. Zum Abbrechen klicken oder Esc drücken.</translation>
    </message>
    <message id="countdown.name">
        <source>Countdown</source>
        <translation>Countdown</translation>
    </message>
    <message id="overlay.badge.scaledSize">
        <source>%1 px  ·  %2 × %3 pt</source>
        <translation>%1&#xa0;px  ·  %2 × %3&#xa0;pt</translation>
    </message>
    <message id="overlay.hint.area">
        <source>Drag an area or click a window  ·  Space from the keyboard  ·  Esc cancels</source>
        <translation>Bereich ziehen oder Fenster anklicken  ·  Leertaste: mit der Tastatur  ·  Esc: Abbrechen</translation>
    </message>
    <message id="overlay.hint.text">
        <source>Drag over the text to read  ·  Esc cancels</source>
        <translation>Über den zu lesenden Text ziehen  ·  Esc: Abbrechen</translation>
    </message>
    <message id="overlay.hint.scrolling">
        <source>Drag over the part that scrolls  ·  Esc cancels</source>
        <translation>Über den scrollbaren Teil ziehen  ·  Esc: Abbrechen</translation>
    </message>
    <message id="overlay.hint.recording">
        <source>Drag the area to record or click a window  ·  Esc cancels</source>
        <translation>Aufzuzeichnenden Bereich ziehen oder Fenster anklicken  ·  Esc: Abbrechen</translation>
    </message>
    <message id="overlay.hint.adjust">
        <source>Drag the handles or use the arrow keys  ·  Return takes it  ·  Esc starts over</source>
        <translation>Griffe ziehen oder Pfeiltasten verwenden  ·  Eingabe: Übernehmen  ·  Esc: Neu beginnen</translation>
    </message>
    <message id="overlay.hint.window">
        <source>Click a window  ·  Tab goes through them  ·  Esc cancels</source>
        <translation>Fenster anklicken  ·  Tab: Nächstes Fenster  ·  Esc: Abbrechen</translation>
    </message>
    <message id="history.yesterday">
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
    <message id="load.error.notFound">
        <source>The file does not exist</source>
        <translation>Die Datei existiert nicht</translation>
    </message>
    <message id="load.error.notPermitted">
        <source>You may not read this file</source>
        <translation>Sie dürfen diese Datei nicht lesen</translation>
    </message>
    <message id="load.error.notAFile">
        <source>This is not a file</source>
        <translation>Das ist keine Datei</translation>
    </message>
    <message id="load.error.tooLarge">
        <source>The picture is too large</source>
        <translation>Das Bild ist zu groß</translation>
    </message>
    <message id="load.error.notAnImage">
        <source>This is not a picture Vellora can read</source>
        <translation>Das ist kein Bild, das Vellora lesen kann</translation>
    </message>
    <message id="load.error.unsupported">
        <source>This kind of picture cannot be read</source>
        <translation>Diese Art von Bild kann nicht gelesen werden</translation>
    </message>
    <message id="load.error.outOfMemory">
        <source>There is not enough memory for the picture</source>
        <translation>Der Arbeitsspeicher reicht für das Bild nicht aus</translation>
    </message>
    <message id="load.error.damaged">
        <source>The picture is damaged</source>
        <translation>Das Bild ist beschädigt</translation>
    </message>
    <message id="capture.error.windowGone">
        <source>The window is gone</source>
        <translation>Das Fenster ist nicht mehr da</translation>
    </message>
    <message id="capture.error.cropFailed">
        <source>Nothing of that area is on the screen any more</source>
        <translation>Von diesem Bereich ist nichts mehr auf dem Bildschirm</translation>
    </message>
    <message id="capture.error.noDisplay">
        <source>The screen is not there any more</source>
        <translation>Der Bildschirm ist nicht mehr da</translation>
    </message>
    <message id="capture.error.failed">
        <source>The screen cannot be captured</source>
        <translation>Der Bildschirm kann nicht aufgenommen werden</translation>
    </message>
    <message id="toast.waylandSession">
        <source>This is a Wayland session: for now Vellora sees only programs that use X11</source>
        <translation>Dies ist eine Wayland-Sitzung: Vorerst sieht Vellora nur Programme, die X11 verwenden</translation>
    </message>
    <message id="toast.recovered" numerus="yes">
        <source>%n capture(s) that were open when Vellora ended are in the history</source>
        <translation>
            <numerusform>%n Aufnahme, die beim Ende von Vellora noch offen war, ist im Verlauf</numerusform>
            <numerusform>%n Aufnahmen, die beim Ende von Vellora noch offen waren, sind im Verlauf</numerusform>
        </translation>
    </message>
    <message id="toast.pinFailed">
        <source>This picture cannot be pinned</source>
        <translation>Dieses Bild kann nicht angeheftet werden</translation>
    </message>
    <message id="menu.endClickThrough">
        <source>Let Clicks Reach the Pins Again</source>
        <translation>Angeheftete Bilder wieder anklickbar machen</translation>
    </message>
    <message id="backdrop.frame.browserLight">
        <source>Browser window, light</source>
        <translation>Browserfenster, hell</translation>
    </message>
    <message id="backdrop.frame.laptopLight">
        <source>Laptop, light</source>
        <translation>Laptop, hell</translation>
    </message>
    <message id="backdrop.frame.phoneLight">
        <source>Phone, light</source>
        <translation>Smartphone, hell</translation>
    </message>
    <message id="backdrop.frame.browserDark">
        <source>Browser window, dark</source>
        <translation>Browserfenster, dunkel</translation>
    </message>
    <message id="backdrop.frame.laptopDark">
        <source>Laptop, dark</source>
        <translation>Laptop, dunkel</translation>
    </message>
    <message id="backdrop.frame.phoneDark">
        <source>Phone, dark</source>
        <translation>Smartphone, dunkel</translation>
    </message>
    <message id="backdrop.title">
        <source>Backdrop</source>
        <translation>Hintergrund</translation>
    </message>
    <message id="backdrop.reset">
        <source>Back to the default backdrop</source>
        <translation>Standardhintergrund wiederherstellen</translation>
    </message>
    <message id="backdrop.enabled">
        <source>Show the backdrop</source>
        <translation>Hintergrund anzeigen</translation>
    </message>
    <message id="backdrop.layout">
        <source>Layout</source>
        <translation>Layout</translation>
    </message>
    <message id="backdrop.layout.margin">
        <source>Margin</source>
        <translation>Rand</translation>
    </message>
    <message id="backdrop.layout.radius">
        <source>Corner radius</source>
        <translation>Eckenradius</translation>
    </message>
    <message id="backdrop.layout.shadow">
        <source>Shadow</source>
        <translation>Schatten</translation>
    </message>
    <message id="backdrop.aspect">
        <source>Aspect ratio</source>
        <translation>Seitenverhältnis</translation>
    </message>
    <message id="backdrop.aspect.auto">
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
    <message id="backdrop.frame">
        <source>Frame</source>
        <translation>Rahmen</translation>
    </message>
    <message id="backdrop.frame.none">
        <source>No frame</source>
        <translation>Kein Rahmen</translation>
    </message>
    <message id="backdrop.placement">
        <source>Placement</source>
        <translation>Platzierung</translation>
    </message>
    <message id="backdrop.tiltX">
        <source>Tilt sideways</source>
        <translation>Neigung horizontal</translation>
    </message>
    <message id="backdrop.tiltY">
        <source>Tilt up and down</source>
        <translation>Neigung vertikal</translation>
    </message>
    <message id="backdrop.rotation">
        <source>Rotation</source>
        <translation>Drehung</translation>
    </message>
    <message id="backdrop.contentScale">
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message id="backdrop.contentOffset">
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message id="backdrop.effects">
        <source>Effects</source>
        <translation>Effekte</translation>
    </message>
    <message id="backdrop.glow">
        <source>Glow</source>
        <translation>Leuchten</translation>
    </message>
    <message id="backdrop.glowCenter">
        <source>Center of the glow</source>
        <translation>Zentrum des Leuchtens</translation>
    </message>
    <message id="backdrop.grain">
        <source>Grain</source>
        <translation>Körnung</translation>
    </message>
    <message id="backdrop.edgeBlur">
        <source>Edge blur</source>
        <translation>Randunschärfe</translation>
    </message>
    <message id="backdrop.edgeBlur.none">
        <source>No edge blur</source>
        <translation>Keine Randunschärfe</translation>
    </message>
    <message id="backdrop.edgeBlur.bottom">
        <source>Blur the bottom</source>
        <translation>Unten weichzeichnen</translation>
    </message>
    <message id="backdrop.edgeBlur.left">
        <source>Blur the left</source>
        <translation>Links weichzeichnen</translation>
    </message>
    <message id="backdrop.edgeBlur.right">
        <source>Blur the right</source>
        <translation>Rechts weichzeichnen</translation>
    </message>
    <message id="backdrop.edgeBlur.all">
        <source>Blur all edges</source>
        <translation>Alle Ränder weichzeichnen</translation>
    </message>
    <message id="backdrop.curated.arc">
        <source>Arc</source>
        <translation>Bogen</translation>
    </message>
    <message id="backdrop.curated.haze">
        <source>Haze</source>
        <translation>Dunst</translation>
    </message>
    <message id="backdrop.curated.lavender">
        <source>Lavender</source>
        <translation>Lavendel</translation>
    </message>
    <message id="backdrop.curated.ember">
        <source>Ember</source>
        <translation>Glut</translation>
    </message>
    <message id="backdrop.curated.moss">
        <source>Moss</source>
        <translation>Moos</translation>
    </message>
    <message id="backdrop.curated.lagoon">
        <source>Lagoon</source>
        <translation>Lagune</translation>
    </message>
    <message id="backdrop.curated.sky">
        <source>Sky</source>
        <translation>Himmel</translation>
    </message>
    <message id="backdrop.gradient.dawn">
        <source>Dawn</source>
        <translation>Morgenrot</translation>
    </message>
    <message id="backdrop.gradient.peach">
        <source>Peach</source>
        <translation>Pfirsich</translation>
    </message>
    <message id="backdrop.gradient.coral">
        <source>Coral</source>
        <translation>Koralle</translation>
    </message>
    <message id="backdrop.gradient.dusk">
        <source>Dusk</source>
        <translation>Abendrot</translation>
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
        <translation>Ozean</translation>
    </message>
    <message id="backdrop.gradient.mist">
        <source>Mist</source>
        <translation>Nebel</translation>
    </message>
    <message id="backdrop.gradient.mint">
        <source>Mint</source>
        <translation>Minze</translation>
    </message>
    <message id="backdrop.gradient.forest">
        <source>Forest</source>
        <translation>Wald</translation>
    </message>
    <message id="backdrop.gradient.slate">
        <source>Slate</source>
        <translation>Schiefer</translation>
    </message>
    <message id="backdrop.gradient.night">
        <source>Night</source>
        <translation>Nacht</translation>
    </message>
    <message id="backdrop.color.white">
        <source>White</source>
        <translation>Weiß</translation>
    </message>
    <message id="backdrop.color.gray">
        <source>Gray</source>
        <translation>Grau</translation>
    </message>
    <message id="backdrop.color.black">
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message id="backdrop.color.blue">
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message id="backdrop.color.purple">
        <source>Purple</source>
        <translation>Lila</translation>
    </message>
    <message id="backdrop.color.pink">
        <source>Pink</source>
        <translation>Rosa</translation>
    </message>
    <message id="backdrop.color.red">
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message id="backdrop.color.orange">
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message id="backdrop.color.green">
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message id="backdrop.color.teal">
        <source>Teal</source>
        <translation>Blaugrün</translation>
    </message>
    <message id="backdrop.background">
        <source>Background</source>
        <translation>Füllung</translation>
    </message>
    <message id="backdrop.ownPicture">
        <source>A picture of your own…</source>
        <translation>Eigenes Bild&#xa0;…</translation>
    </message>
    <message id="backdrop.ownColor">
        <source>Another color…</source>
        <translation>Andere Farbe&#xa0;…</translation>
    </message>
    <message id="backdrop.ownPicture.title">
        <source>Choose a background picture</source>
        <translation>Hintergrundbild auswählen</translation>
    </message>
    <message id="backdrop.ownPicture.filter">
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message id="backdrop.gradient.stops">
        <source>Colors of the gradient</source>
        <translation>Farben des Farbverlaufs</translation>
    </message>
    <message id="backdrop.gradient.stopsHelp">
        <source>Drag a color to move it, away to remove it; click to add one</source>
        <translation>Farbe ziehen, um sie zu verschieben, wegziehen, um sie zu entfernen; klicken, um eine hinzuzufügen</translation>
    </message>
    <message id="backdrop.gradient.color">
        <source>Color of the stop</source>
        <translation>Farbe an dieser Stelle</translation>
    </message>
    <message id="backdrop.gradient.add">
        <source>Add a color</source>
        <translation>Farbe hinzufügen</translation>
    </message>
    <message id="backdrop.gradient.remove">
        <source>Remove the color</source>
        <translation>Farbe entfernen</translation>
    </message>
    <message id="backdrop.gradient.reverse">
        <source>Turn the gradient round</source>
        <translation>Farbverlauf umkehren</translation>
    </message>
    <message id="backdrop.gradient.angle">
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message id="backdrop.styles">
        <source>Saved styles</source>
        <translation>Gespeicherte Stile</translation>
    </message>
    <message id="backdrop.styles.save">
        <source>Save this style…</source>
        <translation>Diesen Stil speichern&#xa0;…</translation>
    </message>
    <message id="backdrop.styles.suggestion">
        <source>Style %1</source>
        <translation>Stil %1</translation>
    </message>
    <message id="backdrop.styles.help">
        <source>Click applies the style; a right click renames, renews or deletes it</source>
        <translation>Klick: Stil anwenden; Rechtsklick: umbenennen, ersetzen oder löschen</translation>
    </message>
    <message id="backdrop.styles.rename">
        <source>Rename…</source>
        <translation>Umbenennen&#xa0;…</translation>
    </message>
    <message id="backdrop.styles.renameAction">
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message id="backdrop.styles.update">
        <source>Replace with the current backdrop</source>
        <translation>Durch aktuellen Hintergrund ersetzen</translation>
    </message>
    <message id="backdrop.styles.delete">
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message id="backdrop.styles.name">
        <source>Name of the style</source>
        <translation>Name des Stils</translation>
    </message>
    <message id="backdrop.styles.accept">
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message id="canvas.hint.drawLine">
        <source>Drag to draw  ·  Shift keeps to steps of 45°</source>
        <translation>Ziehen zum Zeichnen · Umschalt: 45°-Schritte</translation>
    </message>
    <message id="canvas.hint.drawShape">
        <source>Drag to draw  ·  Shift makes it even, Alt starts from the center</source>
        <translation>Ziehen zum Zeichnen · Umschalt: Quadrat oder Kreis · Alt: von der Mitte aus</translation>
    </message>
    <message id="canvas.hint.blur">
        <source>Drag over what should not be read</source>
        <translation>Über das ziehen, was nicht lesbar sein soll</translation>
    </message>
    <message id="canvas.hint.magnifier">
        <source>Drag a lens over what should be larger</source>
        <translation>Über das ziehen, was vergrößert werden soll</translation>
    </message>
    <message id="canvas.hint.pen">
        <source>Drag to draw freehand</source>
        <translation>Ziehen zum Freihandzeichnen</translation>
    </message>
    <message id="canvas.hint.counter">
        <source>Click to place the next number, drag to point it</source>
        <translation>Klicken, um die nächste Nummer zu setzen, ziehen, um ihre Spitze auszurichten</translation>
    </message>
    <message id="canvas.hint.text">
        <source>Click to type, drag for a width</source>
        <translation>Klicken zum Schreiben, ziehen für eine feste Breite</translation>
    </message>
    <message id="canvas.hint.cropping">
        <source>Drag the edges to crop  ·  Return takes it  ·  Esc leaves</source>
        <translation>Kanten ziehen zum Zuschneiden · Eingabe: Übernehmen · Esc: Beenden</translation>
    </message>
    <message id="canvas.hint.select">
        <source>Click to select, drag to select several</source>
        <translation>Klicken zum Auswählen, ziehen für mehrere</translation>
    </message>
    <message id="canvas.hint.move">
        <source>Drag to move  ·  the arrow keys nudge</source>
        <translation>Ziehen zum Verschieben · Pfeiltasten: kleine Schritte</translation>
    </message>
    <message id="canvas.hint.crop">
        <source>Drag to crop</source>
        <translation>Ziehen zum Zuschneiden</translation>
    </message>
    <message id="canvas.hint.resize">
        <source>Drag to resize  ·  Shift keeps it even, Alt keeps the center</source>
        <translation>Ziehen zum Ändern der Größe · Umschalt: proportional · Alt: um die Mitte</translation>
    </message>
    <message id="canvas.hint.movePoint">
        <source>Drag to move this point</source>
        <translation>Ziehen, um diesen Punkt zu verschieben</translation>
    </message>
    <message id="canvas.hint.turn">
        <source>Drag to turn</source>
        <translation>Ziehen zum Drehen</translation>
    </message>
    <message id="canvas.hint.editText">
        <source>Click to place the cursor, drag to select text</source>
        <translation>Klicken, um den Cursor zu setzen, ziehen, um Text auszuwählen</translation>
    </message>
    <message id="canvas.description" numerus="yes">
        <source>Picture of %1 pixels with %n annotation(s)</source>
        <translation>
            <numerusform>Bild mit %1 Pixeln und %n Anmerkung</numerusform>
            <numerusform>Bild mit %1 Pixeln und %n Anmerkungen</numerusform>
        </translation>
    </message>
    <message id="canvas.description.selected" numerus="yes">
        <source>%n selected</source>
        <translation>
            <numerusform>%n ausgewählt</numerusform>
            <numerusform>%n ausgewählt</numerusform>
        </translation>
    </message>
    <message id="canvas.name">
        <source>Canvas</source>
        <translation>Zeichenfläche</translation>
    </message>
    <message id="canvas.hint.eyedropper">
        <source>Click to take the color  ·  Esc leaves</source>
        <translation>Klicken, um die Farbe zu übernehmen · Esc: Beenden</translation>
    </message>
    <message id="canvas.hint.pan">
        <source>Drag to move the view</source>
        <translation>Ziehen, um die Ansicht zu verschieben</translation>
    </message>
    <message id="color.red">
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message id="color.orange">
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message id="color.yellow">
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message id="color.green">
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message id="color.blue">
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message id="color.violet">
        <source>Violet</source>
        <translation>Violett</translation>
    </message>
    <message id="color.pink">
        <source>Pink</source>
        <translation>Rosa</translation>
    </message>
    <message id="color.slate">
        <source>Slate</source>
        <translation>Schiefer</translation>
    </message>
    <message id="editor.color">
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message id="editor.swatch.delete">
        <source>Delete Color</source>
        <translation>Farbe löschen</translation>
    </message>
    <message id="editor.swatch.add">
        <source>Add a color of your own</source>
        <translation>Eigene Farbe hinzufügen</translation>
    </message>
    <message id="editor.swatch.tooltip">
        <source>Your color %1 (double click to edit)</source>
        <translation>Eigene Farbe %1 (zum Bearbeiten doppelklicken)</translation>
    </message>
    <message id="editor.swatch.edit">
        <source>Edit Color…</source>
        <translation>Farbe bearbeiten&#xa0;…</translation>
    </message>
    <message id="editor.failed.render">
        <source>The picture is too large to be made.</source>
        <translation>Das Bild ist zu groß, um erstellt zu werden.</translation>
    </message>
    <message id="editor.failed.encode">
        <source>The picture does not fit this format. PNG holds it.</source>
        <translation>Das Bild passt nicht in dieses Format, wohl aber in PNG.</translation>
    </message>
    <message id="editor.failed.write">
        <source>The file could not be written.</source>
        <translation>Die Datei konnte nicht geschrieben werden.</translation>
    </message>
    <message id="editor.progress.copy">
        <source>Copying…</source>
        <translation>Wird kopiert&#xa0;…</translation>
    </message>
    <message id="editor.progress.save">
        <source>Saving…</source>
        <translation>Wird gespeichert&#xa0;…</translation>
    </message>
    <message id="editor.saveAs.title">
        <source>Save the picture as</source>
        <translation>Bild speichern unter</translation>
    </message>
    <message id="editor.saved">
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message id="editor.progress.print">
        <source>Printing…</source>
        <translation>Wird gedruckt&#xa0;…</translation>
    </message>
    <message id="editor.bar">
        <source>Tools and style</source>
        <translation>Werkzeuge und Stil</translation>
    </message>
    <message id="editor.moreTools">
        <source>More tools</source>
        <translation>Weitere Werkzeuge</translation>
    </message>
    <message id="editor.dragOut">
        <source>Drag the picture into another program</source>
        <translation>Bild in ein anderes Programm ziehen</translation>
    </message>
    <message id="editor.copy.outdated">
        <source>%1: the clipboard holds an older state</source>
        <translation>%1: Die Zwischenablage enthält einen älteren Stand</translation>
    </message>
    <message id="tool.select">
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message id="tool.arrow">
        <source>Arrow</source>
        <translation>Pfeil</translation>
    </message>
    <message id="tool.rectangle">
        <source>Rectangle</source>
        <translation>Rechteck</translation>
    </message>
    <message id="tool.ellipse">
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message id="tool.line">
        <source>Line</source>
        <translation>Linie</translation>
    </message>
    <message id="tool.pen">
        <source>Pen</source>
        <translation>Stift</translation>
    </message>
    <message id="tool.text">
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message id="tool.counter">
        <source>Counter</source>
        <translation>Nummerierung</translation>
    </message>
    <message id="tool.pixelate">
        <source>Pixelate</source>
        <translation>Verpixeln</translation>
    </message>
    <message id="tool.magnifier">
        <source>Magnifier</source>
        <translation>Lupe</translation>
    </message>
    <message id="editor.crop">
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message id="editor.thinner">
        <source>Thinner</source>
        <translation>Dünner</translation>
    </message>
    <message id="editor.thicker">
        <source>Thicker</source>
        <translation>Dicker</translation>
    </message>
    <message id="editor.sketch">
        <source>Hand-Drawn</source>
        <translation>Handgezeichnet</translation>
    </message>
    <message id="editor.fill">
        <source>Fill</source>
        <translation>Füllung</translation>
    </message>
    <message id="editor.nextBlurStyle">
        <source>Next Way to Pixelate</source>
        <translation>Nächste Verpixelungsart</translation>
    </message>
    <message id="editor.pickColor">
        <source>Pick Color from Screen</source>
        <translation>Farbe vom Bildschirm wählen</translation>
    </message>
    <message id="editor.undo">
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message id="editor.redo">
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message id="editor.cut">
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message id="editor.copy">
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message id="editor.paste">
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message id="editor.duplicate">
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message id="editor.delete">
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message id="editor.selectAll">
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message id="editor.bringForward">
        <source>Bring Forward</source>
        <translation>Nach vorne</translation>
    </message>
    <message id="editor.sendBackward">
        <source>Send Backward</source>
        <translation>Nach hinten</translation>
    </message>
    <message id="editor.bringToFront">
        <source>Bring to Front</source>
        <translation>Ganz nach vorne</translation>
    </message>
    <message id="editor.sendToBack">
        <source>Send to Back</source>
        <translation>Ganz nach hinten</translation>
    </message>
    <message id="editor.alignLeft">
        <source>Align Left Edges</source>
        <translation>Linke Kanten ausrichten</translation>
    </message>
    <message id="editor.alignCenter">
        <source>Align Centers Horizontally</source>
        <translation>Mitten horizontal ausrichten</translation>
    </message>
    <message id="editor.alignRight">
        <source>Align Right Edges</source>
        <translation>Rechte Kanten ausrichten</translation>
    </message>
    <message id="editor.alignTop">
        <source>Align Top Edges</source>
        <translation>Obere Kanten ausrichten</translation>
    </message>
    <message id="editor.alignMiddle">
        <source>Align Centers Vertically</source>
        <translation>Mitten vertikal ausrichten</translation>
    </message>
    <message id="editor.alignBottom">
        <source>Align Bottom Edges</source>
        <translation>Untere Kanten ausrichten</translation>
    </message>
    <message id="editor.resetCrop">
        <source>Reset Crop</source>
        <translation>Zuschnitt zurücksetzen</translation>
    </message>
    <message id="editor.addCapture">
        <source>Add Capture</source>
        <translation>Aufnahme hinzufügen</translation>
    </message>
    <message id="editor.addPicture">
        <source>Add Picture…</source>
        <translation>Bild hinzufügen&#xa0;…</translation>
    </message>
    <message id="editor.backdrop">
        <source>Backdrop</source>
        <translation>Hintergrund</translation>
    </message>
    <message id="editor.copyPicture">
        <source>Copy Picture</source>
        <translation>Bild kopieren</translation>
    </message>
    <message id="editor.save">
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message id="editor.saveAs">
        <source>Save As…</source>
        <translation>Speichern unter&#xa0;…</translation>
    </message>
    <message id="editor.print">
        <source>Print…</source>
        <translation>Drucken&#xa0;…</translation>
    </message>
    <message id="editor.pin">
        <source>Pin to Screen</source>
        <translation>Auf dem Bildschirm anheften</translation>
    </message>
    <message id="editor.close">
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message id="editor.zoomIn">
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message id="editor.zoomOut">
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message id="editor.zoomToFit">
        <source>Fit to Window</source>
        <translation>An Fenster anpassen</translation>
    </message>
    <message id="editor.actualSize">
        <source>Actual Size</source>
        <translation>Originalgröße</translation>
    </message>
    <message id="editor.nextPart">
        <source>Next Part of the Window</source>
        <translation>Nächster Fensterbereich</translation>
    </message>
    <message id="editor.more">
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message id="editor.shortcuts">
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message id="editor.group.tools">
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message id="editor.group.style">
        <source>Style</source>
        <translation>Stil</translation>
    </message>
    <message id="editor.group.edit">
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message id="editor.group.arrange">
        <source>Arrange</source>
        <translation>Anordnen</translation>
    </message>
    <message id="editor.group.picture">
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message id="editor.group.view">
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message id="editor.menu.order">
        <source>Order</source>
        <translation>Reihenfolge</translation>
    </message>
    <message id="editor.menu.align">
        <source>Align</source>
        <translation>Ausrichten</translation>
    </message>
    <message id="editor.zoomPercent">
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message id="editor.size">
        <source>%1 × %2 px</source>
        <translation>%1 × %2&#xa0;px</translation>
    </message>
    <message id="editor.selectionSize">
        <source>%1 × %2 at %3, %4</source>
        <translation>%1 × %2 bei %3, %4</translation>
    </message>
    <message id="editor.sketchTooltip">
        <source>Hand-drawn</source>
        <translation>Handgezeichnet</translation>
    </message>
    <message id="editor.fillTooltip">
        <source>Filled</source>
        <translation>Gefüllt</translation>
    </message>
    <message id="editor.textStyleTooltip">
        <source>Text on a filled box</source>
        <translation>Text auf farbigem Grund</translation>
    </message>
    <message id="editor.textFontTooltip">
        <source>Handwriting</source>
        <translation>Handschrift</translation>
    </message>
    <message id="editor.blurStyle.hides">
        <source>Hides what is below it for good.</source>
        <translation>Verbirgt dauerhaft, was darunter liegt.</translation>
    </message>
    <message id="editor.blurStyle.mosaic">
        <source>Mosaic</source>
        <translation>Mosaik</translation>
    </message>
    <message id="editor.blurStyle.erase">
        <source>Paint Over</source>
        <translation>Übermalen</translation>
    </message>
    <message id="editor.blurStyle.gaussian">
        <source>Blur</source>
        <translation>Weichzeichnen</translation>
    </message>
    <message id="editor.blurStyle.gaussian.warning">
        <source>Decorates only: what is below can often be made readable again. Hide secrets with the other two.</source>
        <translation>Nur zur Gestaltung: Was darunter liegt, lässt sich oft wieder lesbar machen. Verbergen Sie Vertrauliches mit den beiden anderen Arten.</translation>
    </message>
    <message id="editor.blurStyleTooltip">
        <source>How it is hidden</source>
        <translation>Art der Verpixelung</translation>
    </message>
    <message id="editor.blurFillColor">
        <source>Color it is painted over with</source>
        <translation>Farbe zum Übermalen</translation>
    </message>
    <message id="editor.blurFillColor.automatic">
        <source>Take the color from around it</source>
        <translation>Farbe aus der Umgebung übernehmen</translation>
    </message>
    <message id="editor.blurStrength.gaussian">
        <source>Softness</source>
        <translation>Weichheit</translation>
    </message>
    <message id="editor.blurStrength.pixel">
        <source>Cell size</source>
        <translation>Blockgröße</translation>
    </message>
    <message id="editor.magnifierShape.circle">
        <source>Round</source>
        <translation>Rund</translation>
    </message>
    <message id="editor.magnifierShape.roundedRect">
        <source>Rounded rectangle</source>
        <translation>Abgerundetes Rechteck</translation>
    </message>
    <message id="editor.magnifierShapeTooltip">
        <source>Shape of the lens</source>
        <translation>Form der Lupe</translation>
    </message>
    <message id="editor.magnificationTooltip">
        <source>Magnification</source>
        <translation>Vergrößerung</translation>
    </message>
    <message id="editor.format.png">
        <source>PNG picture (*.png)</source>
        <translation>PNG-Bild (*.png)</translation>
    </message>
    <message id="editor.format.jpeg">
        <source>JPEG picture (*.jpg *.jpeg)</source>
        <translation>JPEG-Bild (*.jpg *.jpeg)</translation>
    </message>
    <message id="editor.format.webp">
        <source>WebP picture (*.webp)</source>
        <translation>WebP-Bild (*.webp)</translation>
    </message>
    <message id="editor.format.tiff">
        <source>TIFF picture (*.tiff *.tif)</source>
        <translation>TIFF-Bild (*.tiff *.tif)</translation>
    </message>
    <message id="editor.format.pdf">
        <source>PDF document (*.pdf)</source>
        <translation>PDF-Dokument (*.pdf)</translation>
    </message>
    <message id="pin.zoom">
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message id="pin.zoom.hint">
        <source>0 for the picture&apos;s own size</source>
        <translation>0 für Originalgröße</translation>
    </message>
    <message id="pin.copy">
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message id="pin.copy.hint">
        <source>Ctrl+C; drag it into another program</source>
        <translation>Strg+C; in ein anderes Programm ziehbar</translation>
    </message>
    <message id="pin.edit">
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message id="pin.more">
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message id="pin.close">
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message id="pin.percent">
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message id="pin.save">
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message id="pin.opacity">
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message id="pin.shadow">
        <source>Shadow</source>
        <translation>Schatten</translation>
    </message>
    <message id="pin.roundedCorners">
        <source>Rounded Corners</source>
        <translation>Abgerundete Ecken</translation>
    </message>
    <message id="pin.clickThrough">
        <source>Let Clicks Through</source>
        <translation>Klicks durchlassen</translation>
    </message>
    <message id="pin.closeAll">
        <source>Close All Pins</source>
        <translation>Alle angehefteten Bilder schließen</translation>
    </message>
    <message id="pin.window">
        <source>Pinned picture</source>
        <translation>Angeheftetes Bild</translation>
    </message>
    <message id="pin.opacity.badge">
        <source>Opacity %1</source>
        <translation>Deckkraft %1</translation>
    </message>
    <message id="pin.clickThrough.began">
        <source>Clicks now go through the pin. The Vellora menu ends this.</source>
        <translation>Klicks gehen jetzt durch das angeheftete Bild. Im Vellora-Menü lässt sich das beenden.</translation>
    </message>
    <message id="editor.shortcuts.lock">
        <source>Keep the Tool</source>
        <translation>Werkzeug beibehalten</translation>
    </message>
    <message id="editor.shortcuts.doubleClick">
        <source>double click</source>
        <translation>Doppelklick</translation>
    </message>
    <message id="editor.shortcuts.colors">
        <source>Colors</source>
        <translation>Farben</translation>
    </message>
    <message id="editor.shortcuts.pan">
        <source>Move the Picture</source>
        <translation>Bild verschieben</translation>
    </message>
    <message id="editor.shortcuts.space">
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message id="editor.shortcuts.drag">
        <source>drag</source>
        <translation>ziehen</translation>
    </message>
    <message id="editor.cancel">
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message id="editor.zoom">
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message id="editor.moreStyle">
        <source>More of the style</source>
        <translation>Weitere Stiloptionen</translation>
    </message>
    <message id="editor.width">
        <source>Width</source>
        <translation>Strichstärke</translation>
    </message>
    <message id="editor.width.preset">
        <source>Width %1</source>
        <translation>Strichstärke %1</translation>
    </message>
    <message id="color.plane">
        <source>Saturation and brightness</source>
        <translation>Sättigung und Helligkeit</translation>
    </message>
    <message id="color.hue">
        <source>Hue</source>
        <translation>Farbton</translation>
    </message>
    <message id="color.opacity">
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message id="color.hex">
        <source>Color as a hexadecimal number</source>
        <translation>Farbe als Hexadezimalzahl</translation>
    </message>
    <message id="color.eyedropper">
        <source>Pick a color from the screen</source>
        <translation>Farbe vom Bildschirm wählen</translation>
    </message>
    <message id="editor.copiedSelection">
        <source>Copied the selection</source>
        <translation>Auswahl kopiert</translation>
    </message>
    <message id="editor.distributeHorizontally">
        <source>Distribute Horizontally</source>
        <translation>Horizontal verteilen</translation>
    </message>
    <message id="editor.distributeVertically">
        <source>Distribute Vertically</source>
        <translation>Vertikal verteilen</translation>
    </message>
    <message id="compress.compare.value">
        <source>%1 % before</source>
        <translation>%1 % vorher</translation>
    </message>
    <message id="compress.compare.selectOne">
        <source>Select an image to compare it with its result</source>
        <translation>Wählen Sie ein Bild aus, um es mit dem Ergebnis zu vergleichen</translation>
    </message>
    <message id="compress.compare.before">
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message id="compress.compare.after">
        <source>After</source>
        <translation>Nachher</translation>
    </message>
    <message id="compress.compare.fit">
        <source>Show the whole picture</source>
        <translation>Ganzes Bild zeigen</translation>
    </message>
    <message id="compress.compare.actual">
        <source>Show at 100 %</source>
        <translation>In 100 % zeigen</translation>
    </message>
    <message id="compress.compare.zoom">
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message id="compress.compare.busy">
        <source>The result is being made</source>
        <translation>Das Ergebnis wird erstellt</translation>
    </message>
    <message id="compress.compare.name">
        <source>Before and after</source>
        <translation>Vorher und nachher</translation>
    </message>
    <message id="compress.compare.help">
        <source>The arrow keys move the divider. B shows only the picture before.</source>
        <translation>Die Pfeiltasten verschieben die Trennlinie. B zeigt nur das Bild vorher.</translation>
    </message>
    <message id="compress.drop.hint">
        <source>Drop images or folders here</source>
        <translation>Bilder oder Ordner hier ablegen</translation>
    </message>
    <message id="compress.drop.more">
        <source>or paste them with %1. Originals are never changed, and results are never larger.</source>
        <translation>oder mit %1 einfügen. Originale werden nie verändert, und Ergebnisse sind nie größer.</translation>
    </message>
    <message id="compress.drop.choose">
        <source>Choose Images…</source>
        <translation>Bilder auswählen …</translation>
    </message>
    <message id="compress.cancel">
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message id="compress.cancelTip">
        <source>Stop compressing (Esc)</source>
        <translation>Komprimieren anhalten (Esc)</translation>
    </message>
    <message id="compress.actionOne">
        <source>Compress 1 Image</source>
        <translation>1 Bild komprimieren</translation>
    </message>
    <message id="compress.actionMany">
        <source>Compress %1 Images</source>
        <translation>%1 Bilder komprimieren</translation>
    </message>
    <message id="compress.actionNone">
        <source>Compress</source>
        <translation>Komprimieren</translation>
    </message>
    <message id="compress.progress.count">
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message id="compress.toast.failed" numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n fehlgeschlagen</numerusform>
            <numerusform>%n fehlgeschlagen</numerusform>
        </translation>
    </message>
    <message id="compress.row.keptTip">
        <source>Nothing smaller was found in this format and size</source>
        <translation>In diesem Format und dieser Größe ließ sich nichts Kleineres finden</translation>
    </message>
    <message id="compress.row.resultTip">
        <source>Result: %1</source>
        <translation>Ergebnis: %1</translation>
    </message>
    <message id="compress.row.flattenedTip">
        <source>This format cannot be transparent: the background became white</source>
        <translation>Dieses Format kennt keine Transparenz: Der Hintergrund wurde weiß</translation>
    </message>
    <message id="compress.command.retry">
        <source>Try Again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message id="compress.command.reveal">
        <source>Show Result in Folder</source>
        <translation>Ergebnis im Ordner zeigen</translation>
    </message>
    <message id="compress.command.remove">
        <source>Remove from List</source>
        <translation>Aus der Liste entfernen</translation>
    </message>
    <message id="compress.list">
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message id="compress.settingsTitle">
        <source>Settings</source>
        <translation>Einstellungen</translation>
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
        <translation>Jedes Bild behält sein Format</translation>
    </message>
    <message id="compress.format.jpegTip">
        <source>For photos; no transparency</source>
        <translation>Für Fotos; ohne Transparenz</translation>
    </message>
    <message id="compress.format.pngTip">
        <source>Exact to the pixel; for screenshots and drawings</source>
        <translation>Auf das Pixel genau; für Bildschirmfotos und Zeichnungen</translation>
    </message>
    <message id="compress.format.webpTip">
        <source>Smallest, for the web; keeps transparency</source>
        <translation>Am kleinsten, fürs Web; behält Transparenz</translation>
    </message>
    <message id="compress.label.quality">
        <source>Quality</source>
        <translation>Qualität</translation>
    </message>
    <message id="compress.quality.percent">
        <source>%1%</source>
        <translation>%1 %</translation>
    </message>
    <message id="compress.quality.unused">
        <source>Nothing is lost in these formats, so quality changes nothing.</source>
        <translation>In diesen Formaten geht nichts verloren, die Qualität ändert also nichts.</translation>
    </message>
    <message id="compress.label.resize">
        <source>Resize</source>
        <translation>Größe ändern</translation>
    </message>
    <message id="compress.resize.fixed">
        <source>%1 – at most %2 px</source>
        <translation>%1 – höchstens %2 px</translation>
    </message>
    <message id="compress.resize.off">
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message id="compress.resize.custom">
        <source>Custom</source>
        <translation>Eigene</translation>
    </message>
    <message id="compress.resize.customTip">
        <source>Longest edge in pixels. Smaller images stay as they are.</source>
        <translation>Längste Kante in Pixeln. Kleinere Bilder bleiben, wie sie sind.</translation>
    </message>
    <message id="compress.resize.pixels">
        <source>pixels</source>
        <translation>Pixel</translation>
    </message>
    <message id="compress.label.output">
        <source>Save results</source>
        <translation>Ergebnisse sichern</translation>
    </message>
    <message id="compress.output.source">
        <source>Beside the originals</source>
        <translation>Neben den Originalen</translation>
    </message>
    <message id="compress.output.custom">
        <source>In another folder</source>
        <translation>In einem anderen Ordner</translation>
    </message>
    <message id="compress.output.choose">
        <source>Choose…</source>
        <translation>Auswählen …</translation>
    </message>
    <message id="compress.output.chooseTitle">
        <source>Choose a folder for the results</source>
        <translation>Ordner für die Ergebnisse auswählen</translation>
    </message>
    <message id="compress.keepMetadata">
        <source>Keep metadata</source>
        <translation>Metadaten behalten</translation>
    </message>
    <message id="compress.keepMetadataHelp">
        <source>Camera, place, author. Off: nobody learns where a photo was taken.</source>
        <translation>Kamera, Ort, Urheber. Aus: Niemand erfährt, wo ein Foto entstand.</translation>
    </message>
    <message id="compress.keepDates">
        <source>Keep dates</source>
        <translation>Daten behalten</translation>
    </message>
    <message id="compress.keepDatesHelp">
        <source>Results get the file dates of their originals.</source>
        <translation>Ergebnisse bekommen das Dateidatum ihrer Originale.</translation>
    </message>
    <message id="compress.row.kept">
        <source>Kept as it was</source>
        <translation>Blieb, wie es war</translation>
    </message>
    <message id="compress.row.metadataRemoved">
        <source>Only metadata removed</source>
        <translation>Nur Metadaten entfernt</translation>
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
        <translation>%1 % kleiner</translation>
    </message>
    <message id="compress.row.larger">
        <source>%1% larger</source>
        <translation>%1 % größer</translation>
    </message>
    <message id="compress.row.pixels">
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message id="compress.progress.secondsLeft" numerus="yes">
        <source>%n second(s) left</source>
        <translation>
            <numerusform>noch %n Sekunde</numerusform>
            <numerusform>noch %n Sekunden</numerusform>
        </translation>
    </message>
    <message id="compress.progress.minutesLeft" numerus="yes">
        <source>%n minute(s) left</source>
        <translation>
            <numerusform>noch %n Minute</numerusform>
            <numerusform>noch %n Minuten</numerusform>
        </translation>
    </message>
    <message id="compress.failure.notFound">
        <source>The file is no longer there</source>
        <translation>Die Datei ist nicht mehr da</translation>
    </message>
    <message id="compress.failure.notPermitted">
        <source>You are not allowed to read or write here</source>
        <translation>Hier dürfen Sie nicht lesen oder schreiben</translation>
    </message>
    <message id="compress.failure.notAFile">
        <source>This is not a file</source>
        <translation>Das ist keine Datei</translation>
    </message>
    <message id="compress.failure.notAPicture">
        <source>This is not an image</source>
        <translation>Das ist kein Bild</translation>
    </message>
    <message id="compress.failure.tooLarge">
        <source>The image is too large</source>
        <translation>Das Bild ist zu groß</translation>
    </message>
    <message id="compress.failure.unsupported">
        <source>This kind of image is not supported</source>
        <translation>Diese Art von Bild wird nicht unterstützt</translation>
    </message>
    <message id="compress.failure.animated">
        <source>Animations and pages can only keep their format and size</source>
        <translation>Animationen und Seiten können nur Format und Größe behalten</translation>
    </message>
    <message id="compress.failure.damaged">
        <source>The file is damaged</source>
        <translation>Die Datei ist beschädigt</translation>
    </message>
    <message id="compress.failure.outOfMemory">
        <source>There is not enough memory</source>
        <translation>Der Speicher reicht nicht aus</translation>
    </message>
    <message id="compress.failure.cannotEncode">
        <source>The image does not fit this format</source>
        <translation>Das Bild passt nicht in dieses Format</translation>
    </message>
    <message id="compress.failure.diskFull">
        <source>The disk is full</source>
        <translation>Der Datenträger ist voll</translation>
    </message>
    <message id="compress.failure.writeFailed">
        <source>The result could not be written</source>
        <translation>Das Ergebnis konnte nicht geschrieben werden</translation>
    </message>
    <message id="compress.row.cancelled">
        <source>Stopped</source>
        <translation>Angehalten</translation>
    </message>
    <message id="compress.row.sizes">
        <source>%1 → %2</source>
        <translation>%1 → %2</translation>
    </message>
    <message id="compress.row.running">
        <source>Compressing…</source>
        <translation>Wird komprimiert …</translation>
    </message>
    <message id="compress.row.same">
        <source>Same size</source>
        <translation>Gleich groß</translation>
    </message>
    <message id="compress.row.failed">
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message id="compress.badge.fullSize">
        <source>Full size</source>
        <translation>Volle Größe</translation>
    </message>
    <message id="compress.badge.maxEdge">
        <source>At most %1 px</source>
        <translation>Höchstens %1 px</translation>
    </message>
    <message id="compress.badge.sourceFolder">
        <source>Source folder</source>
        <translation>Ordner des Originals</translation>
    </message>
    <message id="compress.title">
        <source>Compress Images</source>
        <translation>Bilder komprimieren</translation>
    </message>
    <message id="compress.command.addImages">
        <source>Add Images…</source>
        <translation>Bilder hinzufügen …</translation>
    </message>
    <message id="compress.command.addFolder">
        <source>Add Folder…</source>
        <translation>Ordner hinzufügen …</translation>
    </message>
    <message id="compress.command.paste">
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message id="compress.command.compare">
        <source>Compare Before and After</source>
        <translation>Vorher und nachher vergleichen</translation>
    </message>
    <message id="compress.command.clear">
        <source>Remove All</source>
        <translation>Alle entfernen</translation>
    </message>
    <message id="compress.command.settings">
        <source>Show or Hide Settings</source>
        <translation>Einstellungen ein- oder ausblenden</translation>
    </message>
    <message id="compress.add">
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message id="compress.addTip">
        <source>Add images, folders, or captures</source>
        <translation>Bilder, Ordner oder Aufnahmen hinzufügen</translation>
    </message>
    <message id="compress.key.space">
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message id="compress.toast.nothingToPaste">
        <source>There is no image on the clipboard</source>
        <translation>In der Zwischenablage ist kein Bild</translation>
    </message>
    <message id="compress.pastedName">
        <source>Pasted Image %1</source>
        <translation>Eingefügtes Bild %1</translation>
    </message>
    <message id="compress.toast.nothingFound">
        <source>No new images were found there</source>
        <translation>Dort wurden keine neuen Bilder gefunden</translation>
    </message>
    <message id="compress.looking">
        <source>Looking for images…</source>
        <translation>Bilder werden gesucht …</translation>
    </message>
    <message id="compress.summary.count" numerus="yes">
        <source>%n image(s)</source>
        <translation>
            <numerusform>%n Bild</numerusform>
            <numerusform>%n Bilder</numerusform>
        </translation>
    </message>
    <message id="compress.addImages.title">
        <source>Add images</source>
        <translation>Bilder hinzufügen</translation>
    </message>
    <message id="compress.addImages.filter">
        <source>Images (%1)</source>
        <translation>Bilder (%1)</translation>
    </message>
    <message id="compress.addImages.allFiles">
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message id="compress.addFolder.title">
        <source>Add a folder of images</source>
        <translation>Einen Ordner mit Bildern hinzufügen</translation>
    </message>
    <message id="compress.command.captures">
        <source>Recent Captures</source>
        <translation>Letzte Aufnahmen</translation>
    </message>
    <message id="compress.toast.done" numerus="yes">
        <source>%n image(s) compressed</source>
        <translation>
            <numerusform>%n Bild komprimiert</numerusform>
            <numerusform>%n Bilder komprimiert</numerusform>
        </translation>
    </message>
    <message id="compress.toast.savedPercent">
        <source>%1 saved (%2%)</source>
        <translation>%1 gespart (%2 %)</translation>
    </message>
    <message id="compress.toast.stopped" numerus="yes">
        <source>%n stopped</source>
        <translation>
            <numerusform>%n angehalten</numerusform>
            <numerusform>%n angehalten</numerusform>
        </translation>
    </message>
    <message id="editor.compress">
        <source>Compress…</source>
        <translation>Komprimieren …</translation>
    </message>
    <message id="recording.bar.level">
        <source>Level of the microphone</source>
        <translation>Pegel des Mikrofons</translation>
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
        <translation>Aufnahme starten (Eingabe)</translation>
    </message>
    <message id="recording.camera.close">
        <source>Turn the camera off</source>
        <translation>Kamera ausschalten</translation>
    </message>
    <message id="recording.camera">
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message id="recording.camera.help">
        <source>Drag to move, turn the wheel to resize</source>
        <translation>Ziehen zum Verschieben, Mausrad für die Größe</translation>
    </message>
    <message id="recording.bar.resume">
        <source>Resume</source>
        <translation>Fortsetzen</translation>
    </message>
    <message id="recording.bar.pause">
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message id="recording.bar.sound.on">
        <source>Sound of the computer: on</source>
        <translation>Ton des Computers: ein</translation>
    </message>
    <message id="recording.bar.sound.off">
        <source>Sound of the computer: off</source>
        <translation>Ton des Computers: aus</translation>
    </message>
    <message id="recording.bar.keys.on">
        <source>Keystrokes are recorded</source>
        <translation>Tastendrücke werden aufgezeichnet</translation>
    </message>
    <message id="recording.bar.keys.off">
        <source>Keystrokes are not recorded</source>
        <translation>Tastendrücke werden nicht aufgezeichnet</translation>
    </message>
    <message id="recording.bar.startingIn">
        <source>Starting in %1</source>
        <translation>Start in %1</translation>
    </message>
    <message id="recording.bar.starting">
        <source>Starting…</source>
        <translation>Startet …</translation>
    </message>
    <message id="recording.bar">
        <source>Recording</source>
        <translation>Aufnahme</translation>
    </message>
    <message id="recording.bar.mic">
        <source>Microphone</source>
        <translation>Mikrofon</translation>
    </message>
    <message id="recording.bar.mic.none">
        <source>No microphone</source>
        <translation>Kein Mikrofon</translation>
    </message>
    <message id="recording.bar.camera">
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message id="recording.bar.camera.none">
        <source>No camera</source>
        <translation>Keine Kamera</translation>
    </message>
    <message id="recording.bar.cancel">
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message id="recording.bar.elapsed">
        <source>Recorded time</source>
        <translation>Aufgenommene Zeit</translation>
    </message>
    <message id="recording.bar.stop">
        <source>Stop and keep the recording</source>
        <translation>Anhalten und Aufnahme behalten</translation>
    </message>
    <message id="recording.bar.close">
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message id="recording.bar.keys.hidden">
        <source>A password is being typed: keystrokes are not recorded</source>
        <translation>Ein Passwort wird eingegeben: Tastendrücke werden nicht aufgezeichnet</translation>
    </message>
    <message id="recording.countdown" numerus="yes">
        <source>Recording starts in %n second(s)</source>
        <translation>
            <numerusform>Aufnahme beginnt in %n Sekunde</numerusform>
            <numerusform>Aufnahme beginnt in %n Sekunden</numerusform>
        </translation>
    </message>
    <message id="alert.ok">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="recording.error.writerSetupFailed">
        <source>Failed to set up the video writer.</source>
        <translation>Die Videodatei konnte nicht angelegt werden.</translation>
    </message>
    <message id="recording.error.writeFailed">
        <source>Failed to write the recording.</source>
        <translation>Die Aufnahme konnte nicht geschrieben werden.</translation>
    </message>
    <message id="recording.error.displayNotFound">
        <source>Could not find the display to record.</source>
        <translation>Der aufzunehmende Bildschirm wurde nicht gefunden.</translation>
    </message>
    <message id="recording.error.windowNotFound">
        <source>Could not find the window to record.</source>
        <translation>Das aufzunehmende Fenster wurde nicht gefunden.</translation>
    </message>
    <message id="recording.error.micNotFound">
        <source>Could not find the selected microphone.</source>
        <translation>Das gewählte Mikrofon wurde nicht gefunden.</translation>
    </message>
    <message id="recording.error.cameraNotFound">
        <source>Could not find the selected camera.</source>
        <translation>Die gewählte Kamera wurde nicht gefunden.</translation>
    </message>
    <message id="toast.recordingFailed">
        <source>The recording could not be kept</source>
        <translation>Die Aufnahme konnte nicht behalten werden</translation>
    </message>
    <message id="record.keyboard.saveFailed">
        <source>The recording is complete, but its keystrokes could not be saved</source>
        <translation>Die Aufnahme ist vollständig, aber ihre Tastendrücke ließen sich nicht sichern</translation>
    </message>
    <message id="recording.mic.unavailable">
        <source>The microphone cannot be used: recording without it</source>
        <translation>Das Mikrofon lässt sich nicht benutzen: Aufnahme ohne Mikrofon</translation>
    </message>
    <message id="recording.mic.lost">
        <source>The microphone is gone: the recording goes on without sound from it</source>
        <translation>Das Mikrofon ist weg: Die Aufnahme läuft ohne dessen Ton weiter</translation>
    </message>
    <message id="recording.camera.lost">
        <source>The camera is gone: the recording goes on without it</source>
        <translation>Die Kamera ist weg: Die Aufnahme läuft ohne sie weiter</translation>
    </message>
    <message id="recording.disk.low">
        <source>The disk has room for about five more minutes of recording</source>
        <translation>Der Datenträger reicht noch für etwa fünf Minuten Aufnahme</translation>
    </message>
    <message id="recording.disk.full">
        <source>The recording was stopped because the disk is nearly full. Everything so far is kept.</source>
        <translation>Die Aufnahme wurde angehalten, weil der Datenträger fast voll ist. Alles bis dahin ist gesichert.</translation>
    </message>
    <message id="recording.stopped">
        <source>What was being recorded is gone. The recording up to then is kept.</source>
        <translation>Was aufgenommen wurde, ist weg. Die Aufnahme bis dahin ist gesichert.</translation>
    </message>
    <message id="record.keyboard.permission.title">
        <source>Keystrokes cannot be recorded</source>
        <translation>Tastendrücke lassen sich nicht aufzeichnen</translation>
    </message>
    <message id="record.keyboard.permission.body">
        <source>This desktop does not let programs see which keys are pressed. The rest is recorded as usual.</source>
        <translation>Diese Arbeitsumgebung lässt Programme nicht sehen, welche Tasten gedrückt werden. Alles andere wird wie gewohnt aufgenommen.</translation>
    </message>
    <message id="alert.importVideo.unreadable.title">
        <source>This file cannot be read as a video</source>
        <translation>Diese Datei lässt sich nicht als Video lesen</translation>
    </message>
    <message id="recording.startFailed">
        <source>The recording could not be started</source>
        <translation>Die Aufnahme konnte nicht gestartet werden</translation>
    </message>
    <message id="recording.region.fullDisplay">
        <source>Full display</source>
        <translation>Ganzer Bildschirm</translation>
    </message>
    <message id="recording.region.square">
        <source>Square</source>
        <translation>Quadrat</translation>
    </message>
    <message id="recording.region.presets">
        <source>Sizes and shapes</source>
        <translation>Größen und Formen</translation>
    </message>
    <message id="recording.region.badge">
        <source>Size of the recording; drag to move it</source>
        <translation>Größe der Aufnahme; zum Verschieben ziehen</translation>
    </message>
    <message id="recording.region.sizes">
        <source>%1 px · %2 pt</source>
        <translation>%1 px · %2 pt</translation>
    </message>
    <message id="toast.recordingsRecovered" numerus="yes">
        <source>%n interrupted recording(s) saved: look under Recent Recordings</source>
        <translation>
            <numerusform>%n unterbrochene Aufzeichnung gesichert, zu finden unter „Letzte Aufzeichnungen“</numerusform>
            <numerusform>%n unterbrochene Aufzeichnungen gesichert, zu finden unter „Letzte Aufzeichnungen“</numerusform>
        </translation>
    </message>
    <message id="toast.recordingNotOpened">
        <source>This recording cannot be opened: it has no movie</source>
        <translation>Diese Aufzeichnung lässt sich nicht öffnen: Sie enthält keinen Film</translation>
    </message>
    <message id="record.source.region">
        <source>Region</source>
        <translation>Bereich</translation>
    </message>
    <message id="record.source.window">
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message id="record.source.fullscreen">
        <source>Full screen</source>
        <translation>Ganzer Bildschirm</translation>
    </message>
    <message id="import.video.title">
        <source>Import a video</source>
        <translation>Video importieren</translation>
    </message>
    <message id="import.video.filter">
        <source>Videos (%1)</source>
        <translation>Videos (%1)</translation>
    </message>
    <message id="import.video.all">
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message id="toast.importingVideo">
        <source>Importing the video…</source>
        <translation>Das Video wird importiert …</translation>
    </message>
    <message id="toast.importNotCopied">
        <source>The video could not be copied into the recordings folder</source>
        <translation>Das Video konnte nicht in den Aufzeichnungsordner kopiert werden</translation>
    </message>
    <message id="player.picture">
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message id="player.play">
        <source>Play</source>
        <translation>Wiedergeben</translation>
    </message>
    <message id="player.sound">
        <source>Sound</source>
        <translation>Ton</translation>
    </message>
    <message id="player.reveal">
        <source>Show in Folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message id="player.notPlayable">
        <source>The movie of this recording cannot be played. Its folder may still hold what was recorded.</source>
        <translation>Der Film dieser Aufnahme kann nicht abgespielt werden. In ihrem Ordner liegt vielleicht noch, was aufgenommen wurde.</translation>
    </message>
    <message id="player.pause">
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message id="player.position">
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message id="recording.systemSound.unavailable">
        <source>This computer&apos;s sound cannot be recorded: the recording goes on without it</source>
        <translation>Der Ton dieses Computers kann nicht aufgenommen werden: Die Aufnahme läuft ohne ihn weiter</translation>
    </message>
    <message id="recording.camera.unavailable">
        <source>The camera cannot be used: recording without it</source>
        <translation>Die Kamera kann nicht verwendet werden: Aufnahme ohne sie</translation>
    </message>
    <message id="recording.mic.returned">
        <source>The microphone is back and recorded again</source>
        <translation>Das Mikrofon ist wieder da und wird weiter aufgenommen</translation>
    </message>
    <message id="recording.systemSound.returned">
        <source>This computer&apos;s sound is recorded again</source>
        <translation>Der Ton dieses Computers wird wieder aufgenommen</translation>
    </message>
</context>
</TS>
