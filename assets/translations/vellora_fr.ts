<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name></name>
    <message id="toast.noTray">
        <source>Vellora is running. This desktop has no tray: start Vellora again to see its commands.</source>
        <translation>Vellora est en cours d’exécution. Ce bureau n’a pas de zone de notification&#xa0;: relancez Vellora pour afficher ses commandes.</translation>
    </message>
    <message id="toast.reopenFailed">
        <source>This capture can no longer be read</source>
        <translation>Cette capture n’est plus lisible</translation>
    </message>
    <message id="alert.clearHistory.title">
        <source>Clear the capture history?</source>
        <translation>Effacer l’historique des captures&#xa0;?</translation>
    </message>
    <message id="alert.clearHistory.body">
        <source>The recent captures will be deleted. Saved files stay where they are.</source>
        <translation>Les dernières captures seront supprimées. Les fichiers enregistrés restent à leur place.</translation>
    </message>
    <message id="alert.clearHistory.confirm">
        <source>Clear History</source>
        <translation>Effacer l’historique</translation>
    </message>
    <message id="alert.cancel">
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message id="load.file.title">
        <source>Open a picture</source>
        <translation>Ouvrir une image</translation>
    </message>
    <message id="load.file.filter">
        <source>Pictures (%1)</source>
        <translation>Images (%1)</translation>
    </message>
    <message id="alert.cleanupRecordings.title" numerus="yes">
        <source>Move %n recording(s) to the Trash?</source>
        <translation>
            <numerusform>Mettre %n enregistrement à la corbeille&#xa0;?</numerusform>
            <numerusform>Mettre %n enregistrements à la corbeille&#xa0;?</numerusform>
        </translation>
    </message>
    <message id="alert.cleanupRecordings.body">
        <source>They take up %1.</source>
        <translation>Espace occupé&#xa0;: %1.</translation>
    </message>
    <message id="alert.cleanupRecordings.openNote">
        <source>Recordings that are open stay.</source>
        <translation>Les enregistrements ouverts sont conservés.</translation>
    </message>
    <message id="alert.cleanupRecordings.confirm">
        <source>Move to Trash</source>
        <translation>Mettre à la corbeille</translation>
    </message>
    <message id="toast.recordingsTrashed">
        <source>Recordings moved to the Trash</source>
        <translation>Enregistrements mis à la corbeille</translation>
    </message>
    <message id="alert.screenRecording.title">
        <source>Vellora is not allowed to see the screen</source>
        <translation>Vellora n’est pas autorisé à voir l’écran</translation>
    </message>
    <message id="alert.screenRecording.body">
        <source>Allow Vellora to record the screen in the desktop&apos;s privacy settings, then try again.</source>
        <translation>Autorisez Vellora à enregistrer l’écran dans les paramètres de confidentialité du bureau, puis réessayez.</translation>
    </message>
    <message id="alert.accessibility.title">
        <source>Vellora is not allowed to follow the pointer</source>
        <translation>Vellora n’est pas autorisé à suivre le pointeur</translation>
    </message>
    <message id="alert.accessibility.body">
        <source>Allow Vellora to use accessibility in the desktop&apos;s privacy settings, then try again.</source>
        <translation>Autorisez Vellora à utiliser les fonctions d’accessibilité dans les paramètres de confidentialité du bureau, puis réessayez.</translation>
    </message>
    <message id="alert.screenRecording.open">
        <source>Open Settings</source>
        <translation>Ouvrir les paramètres</translation>
    </message>
    <message id="load.error.noPicture">
        <source>No picture could be read from the clipboard</source>
        <translation>Aucune image n’a pu être lue dans le presse-papiers</translation>
    </message>
    <message id="settings.about.title">
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message id="settings.about.summary">
        <source>Screenshots, recordings and live streams</source>
        <translation>Captures d’écran, enregistrements et diffusions en direct</translation>
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
        <translation>Site web</translation>
    </message>
    <message id="settings.about.issues">
        <source>Report a problem</source>
        <translation>Signaler un problème</translation>
    </message>
    <message id="settings.about.licences">
        <source>Licences of fonts, icons and libraries</source>
        <translation>Licences des polices, des icônes et des bibliothèques</translation>
    </message>
    <message id="settings.general.title">
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message id="settings.general.afterCapture">
        <source>After a capture</source>
        <translation>Après une capture</translation>
    </message>
    <message id="settings.clipboard.title">
        <source>Clipboard</source>
        <translation>Presse-papiers</translation>
    </message>
    <message id="settings.clipboard.copyAs">
        <source>Copy captures as</source>
        <translation>Copier les captures sous forme de</translation>
    </message>
    <message id="settings.clipboard.info">
        <source>Some programs paste files, others paste pictures. With both, each takes the one it understands.</source>
        <translation>Certaines applications collent des fichiers, d’autres des images. Avec les deux, chacune prend ce qu’elle comprend.</translation>
    </message>
    <message id="settings.general.saving">
        <source>Saving</source>
        <translation>Enregistrement</translation>
    </message>
    <message id="settings.general.saveFolder">
        <source>Folder for captures</source>
        <translation>Dossier des captures</translation>
    </message>
    <message id="settings.general.choose">
        <source>Choose…</source>
        <translation>Choisir…</translation>
    </message>
    <message id="settings.general.resetDesktop">
        <source>Use Desktop Folder</source>
        <translation>Utiliser le Bureau</translation>
    </message>
    <message id="settings.general.resetDesktopHelp">
        <source>Save captures to the Desktop folder again</source>
        <translation>Enregistrer de nouveau les captures dans le dossier Bureau</translation>
    </message>
    <message id="settings.general.language">
        <source>Language</source>
        <translation>Langue</translation>
    </message>
    <message id="settings.general.interfaceLanguage">
        <source>Language of the interface</source>
        <translation>Langue de l’interface</translation>
    </message>
    <message id="settings.general.systemLanguage">
        <source>System language</source>
        <translation>Langue du système</translation>
    </message>
    <message id="settings.general.keepOneAction">
        <source>At least one action has to stay on.</source>
        <translation>Au moins une action doit rester activée.</translation>
    </message>
    <message id="settings.general.chooseTitle">
        <source>Choose a folder for captures</source>
        <translation>Choisir un dossier pour les captures</translation>
    </message>
    <message id="settings.general.showEditor">
        <source>Open in the editor</source>
        <translation>Ouvrir dans l’éditeur</translation>
    </message>
    <message id="settings.general.copy">
        <source>Copy to the clipboard</source>
        <translation>Copier dans le presse-papiers</translation>
    </message>
    <message id="settings.general.save">
        <source>Save as a file</source>
        <translation>Enregistrer dans un fichier</translation>
    </message>
    <message id="settings.general.pin">
        <source>Pin to the screen</source>
        <translation>Épingler à l’écran</translation>
    </message>
    <message id="settings.general.showEditorHelp">
        <source>In the editor, ready to be annotated.</source>
        <translation>Dans l’éditeur, prête à être annotée.</translation>
    </message>
    <message id="settings.general.copyHelp">
        <source>Ready to be pasted into another program.</source>
        <translation>Prête à être collée dans une autre application.</translation>
    </message>
    <message id="settings.general.saveHelp">
        <source>As a PNG picture in the folder below.</source>
        <translation>Sous forme d’image PNG dans le dossier ci-dessous.</translation>
    </message>
    <message id="settings.general.pinHelp">
        <source>It stays above all windows. Takes the place of the editor.</source>
        <translation>Reste au-dessus de toutes les fenêtres et remplace l’ouverture dans l’éditeur.</translation>
    </message>
    <message id="settings.clipboard.fileAndImage">
        <source>File and picture</source>
        <translation>Fichier et image</translation>
    </message>
    <message id="settings.clipboard.fileOnly">
        <source>File only</source>
        <translation>Fichier uniquement</translation>
    </message>
    <message id="settings.clipboard.imageOnly">
        <source>Picture only</source>
        <translation>Image uniquement</translation>
    </message>
    <message id="settings.shortcuts.title">
        <source>Shortcuts</source>
        <translation>Raccourcis</translation>
    </message>
    <message id="settings.title">
        <source>Vellora Settings</source>
        <translation>Paramètres de Vellora</translation>
    </message>
    <message id="settings.pages">
        <source>Settings pages</source>
        <translation>Pages des paramètres</translation>
    </message>
    <message id="shortcut.recording">
        <source>Press the keys…</source>
        <translation>Appuyez sur les touches…</translation>
    </message>
    <message id="shortcut.recordingHelp">
        <source>Press the new combination. Esc stops, Delete goes back to the default.</source>
        <translation>Appuyez sur la nouvelle combinaison. Échap annule, Suppr rétablit la valeur par défaut.</translation>
    </message>
    <message id="shortcut.none">
        <source>None</source>
        <translation>Aucun</translation>
    </message>
    <message id="shortcut.startHelp">
        <source>Click to record another combination</source>
        <translation>Cliquer pour définir une autre combinaison</translation>
    </message>
    <message id="settings.shortcuts.conflict">
        <source>%1 already belongs to “%2”.</source>
        <translation>%1 est déjà attribué à «&#xa0;%2&#xa0;».</translation>
    </message>
    <message id="settings.shortcuts.group">
        <source>Global shortcuts</source>
        <translation>Raccourcis globaux</translation>
    </message>
    <message id="settings.shortcuts.info">
        <source>They work in every program. Click a shortcut and press the new combination: with Ctrl, Alt or Super, or a function key alone.</source>
        <oldsource>They work in every program. Click a shortcut, then press the new combination: with Ctrl, Alt or Super, or a
</oldsource>
        <translation>Ils fonctionnent dans toutes les applications. Cliquez sur un raccourci et appuyez sur la nouvelle combinaison&#xa0;: avec Ctrl, Alt ou Super, ou une touche de fonction seule.</translation>
    </message>
    <message id="shortcut.reset">
        <source>Back to the default</source>
        <translation>Rétablir la valeur par défaut</translation>
    </message>
    <message id="settings.shortcuts.heldElsewhere">
        <source>Another program holds %1. Choose another combination, or free it there.</source>
        <translation>%1 est utilisé par une autre application. Choisissez une autre combinaison ou libérez celle-ci dans l’autre application.</translation>
    </message>
    <message id="settings.shortcuts.fnHint">
        <source>If the F-keys of this keyboard do something else, hold Fn as well.</source>
        <translation>Si les touches F de ce clavier ont une autre fonction, maintenez aussi la touche Fn enfoncée.</translation>
    </message>
    <message id="menu.captureArea">
        <source>Capture Area</source>
        <translation>Capturer une zone</translation>
    </message>
    <message id="menu.captureWindow">
        <source>Capture Window</source>
        <translation>Capturer une fenêtre</translation>
    </message>
    <message id="menu.captureFullscreen">
        <source>Capture Full Screen</source>
        <translation>Capturer tout l’écran</translation>
    </message>
    <message id="menu.captureScrolling">
        <source>Capture Scrolling Page</source>
        <translation>Capturer une page défilante</translation>
    </message>
    <message id="menu.captureText">
        <source>Capture Text</source>
        <translation>Capturer du texte</translation>
    </message>
    <message id="menu.moreCaptures">
        <source>More Captures</source>
        <translation>Autres captures</translation>
    </message>
    <message id="menu.captureElement">
        <source>Capture Element</source>
        <translation>Capturer un élément</translation>
    </message>
    <message id="menu.captureAreaSized">
        <source>Capture Fixed Size…</source>
        <translation>Capturer une taille fixe…</translation>
    </message>
    <message id="menu.captureFullscreenDelayed">
        <source>Capture Full Screen in 3 Seconds</source>
        <translation>Capturer tout l’écran dans 3&#xa0;secondes</translation>
    </message>
    <message id="menu.loadFromClipboard">
        <source>Load from Clipboard</source>
        <translation>Charger depuis le presse-papiers</translation>
    </message>
    <message id="menu.loadFromFile">
        <source>Load from File…</source>
        <translation>Charger depuis un fichier…</translation>
    </message>
    <message id="menu.reopen">
        <source>Reopen Last Capture</source>
        <translation>Rouvrir la dernière capture</translation>
    </message>
    <message id="menu.reopenMore">
        <source>Recent Captures</source>
        <translation>Captures récentes</translation>
    </message>
    <message id="menu.clearHistory">
        <source>Clear History…</source>
        <translation>Effacer l’historique…</translation>
    </message>
    <message id="menu.compressImages">
        <source>Compress Images…</source>
        <translation>Compresser des images…</translation>
    </message>
    <message id="menu.recordRegion">
        <source>Record Area</source>
        <translation>Enregistrer une zone</translation>
    </message>
    <message id="menu.stopRecording">
        <source>Stop Recording</source>
        <translation>Arrêter l’enregistrement</translation>
    </message>
    <message id="menu.pauseRecording">
        <source>Pause Recording</source>
        <translation>Suspendre l’enregistrement</translation>
    </message>
    <message id="menu.resumeRecording">
        <source>Resume Recording</source>
        <translation>Reprendre l’enregistrement</translation>
    </message>
    <message id="menu.recordWindow">
        <source>Record Window</source>
        <translation>Enregistrer une fenêtre</translation>
    </message>
    <message id="menu.recordFullscreen">
        <source>Record Full Screen</source>
        <translation>Enregistrer tout l’écran</translation>
    </message>
    <message id="menu.recentRecordings">
        <source>Recent Recordings</source>
        <translation>Enregistrements récents</translation>
    </message>
    <message id="menu.openRecordingsFolder">
        <source>Open Recordings Folder</source>
        <translation>Ouvrir le dossier des enregistrements</translation>
    </message>
    <message id="menu.cleanupRecordings">
        <source>Clean Up Recordings…</source>
        <translation>Nettoyer les enregistrements…</translation>
    </message>
    <message id="menu.importVideo">
        <source>Import Video…</source>
        <translation>Importer une vidéo…</translation>
    </message>
    <message id="menu.startLive">
        <source>Go Live…</source>
        <translation>Passer en direct…</translation>
    </message>
    <message id="menu.stopLive">
        <source>Stop Live</source>
        <translation>Arrêter le direct</translation>
    </message>
    <message id="menu.settings">
        <source>Settings…</source>
        <translation>Paramètres…</translation>
    </message>
    <message id="menu.quit">
        <source>Quit Vellora</source>
        <translation>Quitter Vellora</translation>
    </message>
    <message id="toast.copiedAndSavedTo">
        <source>Copied and saved to %1</source>
        <translation>Copiée et enregistrée dans %1</translation>
    </message>
    <message id="toast.copied">
        <source>Copied</source>
        <translation>Copiée</translation>
    </message>
    <message id="toast.savedTo">
        <source>Saved to %1</source>
        <translation>Enregistrée dans %1</translation>
    </message>
    <message id="toast.captureOutputFailed">
        <source>Copying or saving failed; the capture is kept in the history</source>
        <translation>Échec de la copie ou de l’enregistrement&#xa0;; la capture est conservée dans l’historique</translation>
    </message>
    <message id="toast.saveFailed">
        <source>Saving to %1 failed; the capture is kept in the history</source>
        <translation>Échec de l’enregistrement dans %1&#xa0;; la capture est conservée dans l’historique</translation>
    </message>
    <message id="countdown.help">
        <source>Capture in a moment. Click or press Escape to cancel.</source>
        <translation>La capture va avoir lieu. Cliquez ou appuyez sur Échap pour annuler.</translation>
    </message>
    <message id="countdown.name">
        <source>Countdown</source>
        <translation>Compte à rebours</translation>
    </message>
    <message id="overlay.badge.scaledSize">
        <source>%1 px  ·  %2 × %3 pt</source>
        <translation>%1&#xa0;px  ·  %2 × %3&#xa0;pt</translation>
    </message>
    <message id="overlay.hint.area">
        <source>Drag an area or click a window  ·  Space from the keyboard  ·  Esc cancels</source>
        <translation>Tracer une zone ou cliquer sur une fenêtre  ·  Espace&#xa0;: au clavier  ·  Échap&#xa0;: annuler</translation>
    </message>
    <message id="overlay.hint.text">
        <source>Drag over the text to read  ·  Esc cancels</source>
        <translation>Encadrer le texte à lire  ·  Échap&#xa0;: annuler</translation>
    </message>
    <message id="overlay.hint.scrolling">
        <source>Drag over the part that scrolls  ·  Esc cancels</source>
        <translation>Encadrer la partie qui défile  ·  Échap&#xa0;: annuler</translation>
    </message>
    <message id="overlay.hint.recording">
        <source>Drag the area to record or click a window  ·  Esc cancels</source>
        <translation>Tracer la zone à enregistrer ou cliquer sur une fenêtre  ·  Échap&#xa0;: annuler</translation>
    </message>
    <message id="overlay.hint.adjust">
        <source>Drag the handles or use the arrow keys  ·  Return takes it  ·  Esc starts over</source>
        <translation>Faire glisser les poignées ou utiliser les flèches  ·  Entrée&#xa0;: valider  ·  Échap&#xa0;: recommencer</translation>
    </message>
    <message id="overlay.hint.window">
        <source>Click a window  ·  Tab goes through them  ·  Esc cancels</source>
        <translation>Cliquer sur une fenêtre  ·  Tab&#xa0;: fenêtre suivante  ·  Échap&#xa0;: annuler</translation>
    </message>
    <message id="history.yesterday">
        <source>Yesterday</source>
        <translation>Hier</translation>
    </message>
    <message id="load.error.notFound">
        <source>The file does not exist</source>
        <translation>Le fichier n’existe pas</translation>
    </message>
    <message id="load.error.notPermitted">
        <source>You may not read this file</source>
        <translation>Vous n’êtes pas autorisé à lire ce fichier</translation>
    </message>
    <message id="load.error.notAFile">
        <source>This is not a file</source>
        <translation>Ce n’est pas un fichier</translation>
    </message>
    <message id="load.error.tooLarge">
        <source>The picture is too large</source>
        <translation>L’image est trop grande</translation>
    </message>
    <message id="load.error.notAnImage">
        <source>This is not a picture Vellora can read</source>
        <translation>Ce n’est pas une image que Vellora peut lire</translation>
    </message>
    <message id="load.error.unsupported">
        <source>This kind of picture cannot be read</source>
        <translation>Ce type d’image ne peut pas être lu</translation>
    </message>
    <message id="load.error.outOfMemory">
        <source>There is not enough memory for the picture</source>
        <translation>La mémoire est insuffisante pour l’image</translation>
    </message>
    <message id="load.error.damaged">
        <source>The picture is damaged</source>
        <translation>L’image est endommagée</translation>
    </message>
    <message id="capture.error.windowGone">
        <source>The window is gone</source>
        <translation>La fenêtre n’existe plus</translation>
    </message>
    <message id="capture.error.cropFailed">
        <source>Nothing of that area is on the screen any more</source>
        <translation>Plus rien de cette zone n’est visible à l’écran</translation>
    </message>
    <message id="capture.error.noDisplay">
        <source>The screen is not there any more</source>
        <translation>L’écran n’est plus disponible</translation>
    </message>
    <message id="capture.error.failed">
        <source>The screen cannot be captured</source>
        <translation>L’écran ne peut pas être capturé</translation>
    </message>
    <message id="toast.waylandSession">
        <source>This is a Wayland session: for now Vellora sees only programs that use X11</source>
        <translation>Ceci est une session Wayland&#xa0;: pour l’instant, Vellora ne voit que les applications qui utilisent X11</translation>
    </message>
    <message id="toast.recovered" numerus="yes">
        <source>%n capture(s) that were open when Vellora ended are in the history</source>
        <translation>
            <numerusform>%n capture encore ouverte à l’arrêt de Vellora se trouve dans l’historique</numerusform>
            <numerusform>%n captures encore ouvertes à l’arrêt de Vellora se trouvent dans l’historique</numerusform>
        </translation>
    </message>
    <message id="toast.pinFailed">
        <source>This picture cannot be pinned</source>
        <translation>Cette image ne peut pas être épinglée</translation>
    </message>
    <message id="menu.endClickThrough">
        <source>Let Clicks Reach the Pins Again</source>
        <translation>Rendre les images épinglées de nouveau cliquables</translation>
    </message>
    <message id="backdrop.frame.browserLight">
        <source>Browser window, light</source>
        <translation>Fenêtre de navigateur, claire</translation>
    </message>
    <message id="backdrop.frame.laptopLight">
        <source>Laptop, light</source>
        <translation>Ordinateur portable, clair</translation>
    </message>
    <message id="backdrop.frame.phoneLight">
        <source>Phone, light</source>
        <translation>Téléphone, clair</translation>
    </message>
    <message id="backdrop.frame.browserDark">
        <source>Browser window, dark</source>
        <translation>Fenêtre de navigateur, sombre</translation>
    </message>
    <message id="backdrop.frame.laptopDark">
        <source>Laptop, dark</source>
        <translation>Ordinateur portable, sombre</translation>
    </message>
    <message id="backdrop.frame.phoneDark">
        <source>Phone, dark</source>
        <translation>Téléphone, sombre</translation>
    </message>
    <message id="backdrop.title">
        <source>Backdrop</source>
        <translation>Arrière-plan</translation>
    </message>
    <message id="backdrop.reset">
        <source>Back to the default backdrop</source>
        <translation>Rétablir l’arrière-plan par défaut</translation>
    </message>
    <message id="backdrop.enabled">
        <source>Show the backdrop</source>
        <translation>Afficher l’arrière-plan</translation>
    </message>
    <message id="backdrop.layout">
        <source>Layout</source>
        <translation>Disposition</translation>
    </message>
    <message id="backdrop.layout.margin">
        <source>Margin</source>
        <translation>Marge</translation>
    </message>
    <message id="backdrop.layout.radius">
        <source>Corner radius</source>
        <translation>Rayon des coins</translation>
    </message>
    <message id="backdrop.layout.shadow">
        <source>Shadow</source>
        <translation>Ombre</translation>
    </message>
    <message id="backdrop.aspect">
        <source>Aspect ratio</source>
        <translation>Proportions</translation>
    </message>
    <message id="backdrop.aspect.auto">
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
    <message id="backdrop.frame">
        <source>Frame</source>
        <translation>Cadre</translation>
    </message>
    <message id="backdrop.frame.none">
        <source>No frame</source>
        <translation>Aucun cadre</translation>
    </message>
    <message id="backdrop.placement">
        <source>Placement</source>
        <translation>Placement</translation>
    </message>
    <message id="backdrop.tiltX">
        <source>Tilt sideways</source>
        <translation>Inclinaison horizontale</translation>
    </message>
    <message id="backdrop.tiltY">
        <source>Tilt up and down</source>
        <translation>Inclinaison verticale</translation>
    </message>
    <message id="backdrop.rotation">
        <source>Rotation</source>
        <translation>Rotation</translation>
    </message>
    <message id="backdrop.contentScale">
        <source>Size</source>
        <translation>Taille</translation>
    </message>
    <message id="backdrop.contentOffset">
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message id="backdrop.effects">
        <source>Effects</source>
        <translation>Effets</translation>
    </message>
    <message id="backdrop.glow">
        <source>Glow</source>
        <translation>Lueur</translation>
    </message>
    <message id="backdrop.glowCenter">
        <source>Center of the glow</source>
        <translation>Centre de la lueur</translation>
    </message>
    <message id="backdrop.grain">
        <source>Grain</source>
        <translation>Grain</translation>
    </message>
    <message id="backdrop.edgeBlur">
        <source>Edge blur</source>
        <translation>Flou des bords</translation>
    </message>
    <message id="backdrop.edgeBlur.none">
        <source>No edge blur</source>
        <translation>Aucun flou des bords</translation>
    </message>
    <message id="backdrop.edgeBlur.bottom">
        <source>Blur the bottom</source>
        <translation>Flouter le bas</translation>
    </message>
    <message id="backdrop.edgeBlur.left">
        <source>Blur the left</source>
        <translation>Flouter la gauche</translation>
    </message>
    <message id="backdrop.edgeBlur.right">
        <source>Blur the right</source>
        <translation>Flouter la droite</translation>
    </message>
    <message id="backdrop.edgeBlur.all">
        <source>Blur all edges</source>
        <translation>Flouter tous les bords</translation>
    </message>
    <message id="backdrop.curated.arc">
        <source>Arc</source>
        <translation>Arc</translation>
    </message>
    <message id="backdrop.curated.haze">
        <source>Haze</source>
        <translation>Voile</translation>
    </message>
    <message id="backdrop.curated.lavender">
        <source>Lavender</source>
        <translation>Lavande</translation>
    </message>
    <message id="backdrop.curated.ember">
        <source>Ember</source>
        <translation>Braise</translation>
    </message>
    <message id="backdrop.curated.moss">
        <source>Moss</source>
        <translation>Mousse</translation>
    </message>
    <message id="backdrop.curated.lagoon">
        <source>Lagoon</source>
        <translation>Lagon</translation>
    </message>
    <message id="backdrop.curated.sky">
        <source>Sky</source>
        <translation>Ciel</translation>
    </message>
    <message id="backdrop.gradient.dawn">
        <source>Dawn</source>
        <translation>Aube</translation>
    </message>
    <message id="backdrop.gradient.peach">
        <source>Peach</source>
        <translation>Pêche</translation>
    </message>
    <message id="backdrop.gradient.coral">
        <source>Coral</source>
        <translation>Corail</translation>
    </message>
    <message id="backdrop.gradient.dusk">
        <source>Dusk</source>
        <translation>Crépuscule</translation>
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
        <translation>Océan</translation>
    </message>
    <message id="backdrop.gradient.mist">
        <source>Mist</source>
        <translation>Brume</translation>
    </message>
    <message id="backdrop.gradient.mint">
        <source>Mint</source>
        <translation>Menthe</translation>
    </message>
    <message id="backdrop.gradient.forest">
        <source>Forest</source>
        <translation>Forêt</translation>
    </message>
    <message id="backdrop.gradient.slate">
        <source>Slate</source>
        <translation>Ardoise</translation>
    </message>
    <message id="backdrop.gradient.night">
        <source>Night</source>
        <translation>Nuit</translation>
    </message>
    <message id="backdrop.color.white">
        <source>White</source>
        <translation>Blanc</translation>
    </message>
    <message id="backdrop.color.gray">
        <source>Gray</source>
        <translation>Gris</translation>
    </message>
    <message id="backdrop.color.black">
        <source>Black</source>
        <translation>Noir</translation>
    </message>
    <message id="backdrop.color.blue">
        <source>Blue</source>
        <translation>Bleu</translation>
    </message>
    <message id="backdrop.color.purple">
        <source>Purple</source>
        <translation>Violet</translation>
    </message>
    <message id="backdrop.color.pink">
        <source>Pink</source>
        <translation>Rose</translation>
    </message>
    <message id="backdrop.color.red">
        <source>Red</source>
        <translation>Rouge</translation>
    </message>
    <message id="backdrop.color.orange">
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message id="backdrop.color.green">
        <source>Green</source>
        <translation>Vert</translation>
    </message>
    <message id="backdrop.color.teal">
        <source>Teal</source>
        <translation>Bleu-vert</translation>
    </message>
    <message id="backdrop.background">
        <source>Background</source>
        <translation>Fond</translation>
    </message>
    <message id="backdrop.ownPicture">
        <source>A picture of your own…</source>
        <translation>Image personnelle…</translation>
    </message>
    <message id="backdrop.ownColor">
        <source>Another color…</source>
        <translation>Autre couleur…</translation>
    </message>
    <message id="backdrop.ownPicture.title">
        <source>Choose a background picture</source>
        <translation>Choisir une image de fond</translation>
    </message>
    <message id="backdrop.ownPicture.filter">
        <source>Pictures</source>
        <translation>Images</translation>
    </message>
    <message id="backdrop.gradient.stops">
        <source>Colors of the gradient</source>
        <translation>Couleurs du dégradé</translation>
    </message>
    <message id="backdrop.gradient.stopsHelp">
        <source>Drag a color to move it, away to remove it; click to add one</source>
        <translation>Faites glisser une couleur pour la déplacer, vers l’extérieur pour la supprimer&#xa0;; cliquez pour en ajouter une</translation>
    </message>
    <message id="backdrop.gradient.color">
        <source>Color of the stop</source>
        <translation>Couleur de ce point</translation>
    </message>
    <message id="backdrop.gradient.add">
        <source>Add a color</source>
        <translation>Ajouter une couleur</translation>
    </message>
    <message id="backdrop.gradient.remove">
        <source>Remove the color</source>
        <translation>Supprimer la couleur</translation>
    </message>
    <message id="backdrop.gradient.reverse">
        <source>Turn the gradient round</source>
        <translation>Inverser le dégradé</translation>
    </message>
    <message id="backdrop.gradient.angle">
        <source>Angle</source>
        <translation>Angle</translation>
    </message>
    <message id="backdrop.styles">
        <source>Saved styles</source>
        <translation>Styles enregistrés</translation>
    </message>
    <message id="backdrop.styles.save">
        <source>Save this style…</source>
        <translation>Enregistrer ce style…</translation>
    </message>
    <message id="backdrop.styles.suggestion">
        <source>Style %1</source>
        <translation>Style %1</translation>
    </message>
    <message id="backdrop.styles.help">
        <source>Click applies the style; a right click renames, renews or deletes it</source>
        <translation>Clic&#xa0;: appliquer le style&#xa0;; clic droit&#xa0;: le renommer, le remplacer ou le supprimer</translation>
    </message>
    <message id="backdrop.styles.rename">
        <source>Rename…</source>
        <translation>Renommer…</translation>
    </message>
    <message id="backdrop.styles.renameAction">
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message id="backdrop.styles.update">
        <source>Replace with the current backdrop</source>
        <translation>Remplacer par l’arrière-plan actuel</translation>
    </message>
    <message id="backdrop.styles.delete">
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message id="backdrop.styles.name">
        <source>Name of the style</source>
        <translation>Nom du style</translation>
    </message>
    <message id="backdrop.styles.accept">
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message id="canvas.hint.drawLine">
        <source>Drag to draw  ·  Shift keeps to steps of 45°</source>
        <translation>Faire glisser pour dessiner · Maj&#xa0;: par pas de 45°</translation>
    </message>
    <message id="canvas.hint.drawShape">
        <source>Drag to draw  ·  Shift makes it even, Alt starts from the center</source>
        <translation>Faire glisser pour dessiner · Maj&#xa0;: carré ou cercle · Alt&#xa0;: depuis le centre</translation>
    </message>
    <message id="canvas.hint.blur">
        <source>Drag over what should not be read</source>
        <translation>Encadrer ce qui ne doit pas être lu</translation>
    </message>
    <message id="canvas.hint.magnifier">
        <source>Drag a lens over what should be larger</source>
        <translation>Encadrer ce qui doit être agrandi</translation>
    </message>
    <message id="canvas.hint.pen">
        <source>Drag to draw freehand</source>
        <translation>Faire glisser pour dessiner à main levée</translation>
    </message>
    <message id="canvas.hint.counter">
        <source>Click to place the next number, drag to point it</source>
        <translation>Cliquer pour placer le numéro suivant, faire glisser pour orienter sa pointe</translation>
    </message>
    <message id="canvas.hint.text">
        <source>Click to type, drag for a width</source>
        <translation>Cliquer pour écrire, faire glisser pour fixer la largeur</translation>
    </message>
    <message id="canvas.hint.cropping">
        <source>Drag the edges to crop  ·  Return takes it  ·  Esc leaves</source>
        <translation>Faire glisser les bords pour recadrer · Entrée&#xa0;: valider · Échap&#xa0;: quitter</translation>
    </message>
    <message id="canvas.hint.select">
        <source>Click to select, drag to select several</source>
        <translation>Cliquer pour sélectionner, faire glisser pour une sélection multiple</translation>
    </message>
    <message id="canvas.hint.move">
        <source>Drag to move  ·  the arrow keys nudge</source>
        <translation>Faire glisser pour déplacer · Flèches&#xa0;: par petits pas</translation>
    </message>
    <message id="canvas.hint.crop">
        <source>Drag to crop</source>
        <translation>Faire glisser pour recadrer</translation>
    </message>
    <message id="canvas.hint.resize">
        <source>Drag to resize  ·  Shift keeps it even, Alt keeps the center</source>
        <translation>Faire glisser pour redimensionner · Maj&#xa0;: proportionnel · Alt&#xa0;: autour du centre</translation>
    </message>
    <message id="canvas.hint.movePoint">
        <source>Drag to move this point</source>
        <translation>Faire glisser pour déplacer ce point</translation>
    </message>
    <message id="canvas.hint.turn">
        <source>Drag to turn</source>
        <translation>Faire glisser pour faire pivoter</translation>
    </message>
    <message id="canvas.hint.editText">
        <source>Click to place the cursor, drag to select text</source>
        <translation>Cliquer pour placer le curseur, faire glisser pour sélectionner du texte</translation>
    </message>
    <message id="canvas.description" numerus="yes">
        <source>Picture of %1 pixels with %n annotation(s)</source>
        <translation>
            <numerusform>Image de %1 pixels avec %n annotation</numerusform>
            <numerusform>Image de %1 pixels avec %n annotations</numerusform>
        </translation>
    </message>
    <message id="canvas.description.selected" numerus="yes">
        <source>%n selected</source>
        <translation>
            <numerusform>%n sélectionnée</numerusform>
            <numerusform>%n sélectionnées</numerusform>
        </translation>
    </message>
    <message id="canvas.name">
        <source>Canvas</source>
        <translation>Zone de dessin</translation>
    </message>
    <message id="canvas.hint.eyedropper">
        <source>Click to take the color  ·  Esc leaves</source>
        <translation>Cliquer pour prélever la couleur · Échap&#xa0;: quitter</translation>
    </message>
    <message id="canvas.hint.pan">
        <source>Drag to move the view</source>
        <translation>Faire glisser pour déplacer la vue</translation>
    </message>
    <message id="color.red">
        <source>Red</source>
        <translation>Rouge</translation>
    </message>
    <message id="color.orange">
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message id="color.yellow">
        <source>Yellow</source>
        <translation>Jaune</translation>
    </message>
    <message id="color.green">
        <source>Green</source>
        <translation>Vert</translation>
    </message>
    <message id="color.blue">
        <source>Blue</source>
        <translation>Bleu</translation>
    </message>
    <message id="color.violet">
        <source>Violet</source>
        <translation>Violet</translation>
    </message>
    <message id="color.pink">
        <source>Pink</source>
        <translation>Rose</translation>
    </message>
    <message id="color.slate">
        <source>Slate</source>
        <translation>Ardoise</translation>
    </message>
    <message id="editor.color">
        <source>Color</source>
        <translation>Couleur</translation>
    </message>
    <message id="editor.swatch.delete">
        <source>Delete Color</source>
        <translation>Supprimer la couleur</translation>
    </message>
    <message id="editor.swatch.add">
        <source>Add a color of your own</source>
        <translation>Ajouter une couleur personnelle</translation>
    </message>
    <message id="editor.swatch.tooltip">
        <source>Your color %1 (double click to edit)</source>
        <translation>Couleur personnelle %1 (double-cliquer pour modifier)</translation>
    </message>
    <message id="editor.swatch.edit">
        <source>Edit Color…</source>
        <translation>Modifier la couleur…</translation>
    </message>
    <message id="editor.failed.render">
        <source>The picture is too large to be made.</source>
        <translation>L’image est trop grande pour être créée.</translation>
    </message>
    <message id="editor.failed.encode">
        <source>The picture does not fit this format. PNG holds it.</source>
        <translation>L’image ne tient pas dans ce format. Le format PNG convient.</translation>
    </message>
    <message id="editor.failed.write">
        <source>The file could not be written.</source>
        <translation>Le fichier n’a pas pu être écrit.</translation>
    </message>
    <message id="editor.progress.copy">
        <source>Copying…</source>
        <translation>Copie en cours…</translation>
    </message>
    <message id="editor.progress.save">
        <source>Saving…</source>
        <translation>Enregistrement en cours…</translation>
    </message>
    <message id="editor.saveAs.title">
        <source>Save the picture as</source>
        <translation>Enregistrer l’image sous</translation>
    </message>
    <message id="editor.saved">
        <source>Saved %1</source>
        <translation>%1 enregistré</translation>
    </message>
    <message id="editor.progress.print">
        <source>Printing…</source>
        <translation>Impression en cours…</translation>
    </message>
    <message id="editor.bar">
        <source>Tools and style</source>
        <translation>Outils et style</translation>
    </message>
    <message id="editor.moreTools">
        <source>More tools</source>
        <translation>Autres outils</translation>
    </message>
    <message id="editor.dragOut">
        <source>Drag the picture into another program</source>
        <translation>Faire glisser l’image dans une autre application</translation>
    </message>
    <message id="editor.copy.outdated">
        <source>%1: the clipboard holds an older state</source>
        <translation>%1&#xa0;: le presse-papiers contient un état antérieur</translation>
    </message>
    <message id="tool.select">
        <source>Select</source>
        <translation>Sélectionner</translation>
    </message>
    <message id="tool.arrow">
        <source>Arrow</source>
        <translation>Flèche</translation>
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
        <translation>Ligne</translation>
    </message>
    <message id="tool.pen">
        <source>Pen</source>
        <translation>Stylo</translation>
    </message>
    <message id="tool.text">
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message id="tool.counter">
        <source>Counter</source>
        <translation>Numérotation</translation>
    </message>
    <message id="tool.pixelate">
        <source>Pixelate</source>
        <translation>Pixelliser</translation>
    </message>
    <message id="tool.magnifier">
        <source>Magnifier</source>
        <translation>Loupe</translation>
    </message>
    <message id="editor.crop">
        <source>Crop</source>
        <translation>Recadrer</translation>
    </message>
    <message id="editor.thinner">
        <source>Thinner</source>
        <translation>Plus fin</translation>
    </message>
    <message id="editor.thicker">
        <source>Thicker</source>
        <translation>Plus épais</translation>
    </message>
    <message id="editor.sketch">
        <source>Hand-Drawn</source>
        <translation>Tracé à la main</translation>
    </message>
    <message id="editor.fill">
        <source>Fill</source>
        <translation>Remplissage</translation>
    </message>
    <message id="editor.nextBlurStyle">
        <source>Next Way to Pixelate</source>
        <translation>Mode de pixellisation suivant</translation>
    </message>
    <message id="editor.pickColor">
        <source>Pick Color from Screen</source>
        <translation>Prélever une couleur à l’écran</translation>
    </message>
    <message id="editor.undo">
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message id="editor.redo">
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message id="editor.cut">
        <source>Cut</source>
        <translation>Couper</translation>
    </message>
    <message id="editor.copy">
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message id="editor.paste">
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message id="editor.duplicate">
        <source>Duplicate</source>
        <translation>Dupliquer</translation>
    </message>
    <message id="editor.delete">
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message id="editor.selectAll">
        <source>Select All</source>
        <translation>Tout sélectionner</translation>
    </message>
    <message id="editor.bringForward">
        <source>Bring Forward</source>
        <translation>Avancer d’un plan</translation>
    </message>
    <message id="editor.sendBackward">
        <source>Send Backward</source>
        <translation>Reculer d’un plan</translation>
    </message>
    <message id="editor.bringToFront">
        <source>Bring to Front</source>
        <translation>Mettre au premier plan</translation>
    </message>
    <message id="editor.sendToBack">
        <source>Send to Back</source>
        <translation>Mettre au dernier plan</translation>
    </message>
    <message id="editor.alignLeft">
        <source>Align Left Edges</source>
        <translation>Aligner les bords gauches</translation>
    </message>
    <message id="editor.alignCenter">
        <source>Align Centers Horizontally</source>
        <translation>Aligner les centres horizontalement</translation>
    </message>
    <message id="editor.alignRight">
        <source>Align Right Edges</source>
        <translation>Aligner les bords droits</translation>
    </message>
    <message id="editor.alignTop">
        <source>Align Top Edges</source>
        <translation>Aligner les bords supérieurs</translation>
    </message>
    <message id="editor.alignMiddle">
        <source>Align Centers Vertically</source>
        <translation>Aligner les centres verticalement</translation>
    </message>
    <message id="editor.alignBottom">
        <source>Align Bottom Edges</source>
        <translation>Aligner les bords inférieurs</translation>
    </message>
    <message id="editor.resetCrop">
        <source>Reset Crop</source>
        <translation>Réinitialiser le recadrage</translation>
    </message>
    <message id="editor.addCapture">
        <source>Add Capture</source>
        <translation>Ajouter une capture</translation>
    </message>
    <message id="editor.addPicture">
        <source>Add Picture…</source>
        <translation>Ajouter une image…</translation>
    </message>
    <message id="editor.backdrop">
        <source>Backdrop</source>
        <translation>Arrière-plan</translation>
    </message>
    <message id="editor.copyPicture">
        <source>Copy Picture</source>
        <translation>Copier l’image</translation>
    </message>
    <message id="editor.save">
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message id="editor.saveAs">
        <source>Save As…</source>
        <translation>Enregistrer sous…</translation>
    </message>
    <message id="editor.print">
        <source>Print…</source>
        <translation>Imprimer…</translation>
    </message>
    <message id="editor.pin">
        <source>Pin to Screen</source>
        <translation>Épingler à l’écran</translation>
    </message>
    <message id="editor.close">
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message id="editor.zoomIn">
        <source>Zoom In</source>
        <translation>Zoom avant</translation>
    </message>
    <message id="editor.zoomOut">
        <source>Zoom Out</source>
        <translation>Zoom arrière</translation>
    </message>
    <message id="editor.zoomToFit">
        <source>Fit to Window</source>
        <translation>Ajuster à la fenêtre</translation>
    </message>
    <message id="editor.actualSize">
        <source>Actual Size</source>
        <translation>Taille réelle</translation>
    </message>
    <message id="editor.nextPart">
        <source>Next Part of the Window</source>
        <translation>Partie suivante de la fenêtre</translation>
    </message>
    <message id="editor.more">
        <source>More</source>
        <translation>Plus</translation>
    </message>
    <message id="editor.shortcuts">
        <source>Keyboard Shortcuts</source>
        <translation>Raccourcis clavier</translation>
    </message>
    <message id="editor.group.tools">
        <source>Tools</source>
        <translation>Outils</translation>
    </message>
    <message id="editor.group.style">
        <source>Style</source>
        <translation>Style</translation>
    </message>
    <message id="editor.group.edit">
        <source>Edit</source>
        <translation>Édition</translation>
    </message>
    <message id="editor.group.arrange">
        <source>Arrange</source>
        <translation>Organiser</translation>
    </message>
    <message id="editor.group.picture">
        <source>Picture</source>
        <translation>Image</translation>
    </message>
    <message id="editor.group.view">
        <source>View</source>
        <translation>Affichage</translation>
    </message>
    <message id="editor.menu.order">
        <source>Order</source>
        <translation>Ordre</translation>
    </message>
    <message id="editor.menu.align">
        <source>Align</source>
        <translation>Aligner</translation>
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
        <translation>%1 × %2 à %3, %4</translation>
    </message>
    <message id="editor.sketchTooltip">
        <source>Hand-drawn</source>
        <translation>Tracé à la main</translation>
    </message>
    <message id="editor.fillTooltip">
        <source>Filled</source>
        <translation>Avec remplissage</translation>
    </message>
    <message id="editor.textStyleTooltip">
        <source>Text on a filled box</source>
        <translation>Texte sur fond coloré</translation>
    </message>
    <message id="editor.textFontTooltip">
        <source>Handwriting</source>
        <translation>Écriture manuscrite</translation>
    </message>
    <message id="editor.blurStyle.hides">
        <source>Hides what is below it for good.</source>
        <translation>Masque définitivement ce qui se trouve en dessous.</translation>
    </message>
    <message id="editor.blurStyle.mosaic">
        <source>Mosaic</source>
        <translation>Mosaïque</translation>
    </message>
    <message id="editor.blurStyle.erase">
        <source>Paint Over</source>
        <translation>Recouvrir</translation>
    </message>
    <message id="editor.blurStyle.gaussian">
        <source>Blur</source>
        <translation>Flouter</translation>
    </message>
    <message id="editor.blurStyle.gaussian.warning">
        <source>Decorates only: what is below can often be made readable again. Hide secrets with the other two.</source>
        <translation>Purement décoratif&#xa0;: ce qui se trouve en dessous peut souvent être rendu de nouveau lisible. Masquez les données confidentielles avec les deux autres modes.</translation>
    </message>
    <message id="editor.blurStyleTooltip">
        <source>How it is hidden</source>
        <translation>Mode de pixellisation</translation>
    </message>
    <message id="editor.blurFillColor">
        <source>Color it is painted over with</source>
        <translation>Couleur de recouvrement</translation>
    </message>
    <message id="editor.blurFillColor.automatic">
        <source>Take the color from around it</source>
        <translation>Prendre la couleur environnante</translation>
    </message>
    <message id="editor.blurStrength.gaussian">
        <source>Softness</source>
        <translation>Adoucissement</translation>
    </message>
    <message id="editor.blurStrength.pixel">
        <source>Cell size</source>
        <translation>Taille des blocs</translation>
    </message>
    <message id="editor.magnifierShape.circle">
        <source>Round</source>
        <translation>Ronde</translation>
    </message>
    <message id="editor.magnifierShape.roundedRect">
        <source>Rounded rectangle</source>
        <translation>Rectangle arrondi</translation>
    </message>
    <message id="editor.magnifierShapeTooltip">
        <source>Shape of the lens</source>
        <translation>Forme de la loupe</translation>
    </message>
    <message id="editor.magnificationTooltip">
        <source>Magnification</source>
        <translation>Grossissement</translation>
    </message>
    <message id="editor.format.png">
        <source>PNG picture (*.png)</source>
        <translation>Image PNG (*.png)</translation>
    </message>
    <message id="editor.format.jpeg">
        <source>JPEG picture (*.jpg *.jpeg)</source>
        <translation>Image JPEG (*.jpg *.jpeg)</translation>
    </message>
    <message id="editor.format.webp">
        <source>WebP picture (*.webp)</source>
        <translation>Image WebP (*.webp)</translation>
    </message>
    <message id="editor.format.tiff">
        <source>TIFF picture (*.tiff *.tif)</source>
        <translation>Image TIFF (*.tiff *.tif)</translation>
    </message>
    <message id="editor.format.pdf">
        <source>PDF document (*.pdf)</source>
        <translation>Document PDF (*.pdf)</translation>
    </message>
    <message id="pin.zoom">
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message id="pin.zoom.hint">
        <source>0 for the picture&apos;s own size</source>
        <translation>0 pour la taille réelle</translation>
    </message>
    <message id="pin.copy">
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message id="pin.copy.hint">
        <source>Ctrl+C; drag it into another program</source>
        <translation>Ctrl+C&#xa0;; à faire glisser dans une autre application</translation>
    </message>
    <message id="pin.edit">
        <source>Edit</source>
        <translation>Modifier</translation>
    </message>
    <message id="pin.more">
        <source>More</source>
        <translation>Plus</translation>
    </message>
    <message id="pin.close">
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message id="pin.percent">
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message id="pin.save">
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message id="pin.opacity">
        <source>Opacity</source>
        <translation>Opacité</translation>
    </message>
    <message id="pin.shadow">
        <source>Shadow</source>
        <translation>Ombre</translation>
    </message>
    <message id="pin.roundedCorners">
        <source>Rounded Corners</source>
        <translation>Coins arrondis</translation>
    </message>
    <message id="pin.clickThrough">
        <source>Let Clicks Through</source>
        <translation>Laisser passer les clics</translation>
    </message>
    <message id="pin.closeAll">
        <source>Close All Pins</source>
        <translation>Fermer toutes les images épinglées</translation>
    </message>
    <message id="pin.window">
        <source>Pinned picture</source>
        <translation>Image épinglée</translation>
    </message>
    <message id="pin.opacity.badge">
        <source>Opacity %1</source>
        <translation>Opacité %1</translation>
    </message>
    <message id="pin.clickThrough.began">
        <source>Clicks now go through the pin. The Vellora menu ends this.</source>
        <translation>Les clics traversent maintenant l’image épinglée. Le menu de Vellora permet d’y mettre fin.</translation>
    </message>
    <message id="editor.shortcuts.lock">
        <source>Keep the Tool</source>
        <translation>Conserver l’outil</translation>
    </message>
    <message id="editor.shortcuts.doubleClick">
        <source>double click</source>
        <translation>double-clic</translation>
    </message>
    <message id="editor.shortcuts.colors">
        <source>Colors</source>
        <translation>Couleurs</translation>
    </message>
    <message id="editor.shortcuts.pan">
        <source>Move the Picture</source>
        <translation>Déplacer l’image</translation>
    </message>
    <message id="editor.shortcuts.space">
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message id="editor.shortcuts.drag">
        <source>drag</source>
        <translation>glisser</translation>
    </message>
    <message id="editor.cancel">
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message id="editor.zoom">
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message id="editor.moreStyle">
        <source>More of the style</source>
        <translation>Plus d’options de style</translation>
    </message>
    <message id="editor.width">
        <source>Width</source>
        <translation>Épaisseur</translation>
    </message>
    <message id="editor.width.preset">
        <source>Width %1</source>
        <translation>Épaisseur %1</translation>
    </message>
    <message id="color.plane">
        <source>Saturation and brightness</source>
        <translation>Saturation et luminosité</translation>
    </message>
    <message id="color.hue">
        <source>Hue</source>
        <translation>Teinte</translation>
    </message>
    <message id="color.opacity">
        <source>Opacity</source>
        <translation>Opacité</translation>
    </message>
    <message id="color.hex">
        <source>Color as a hexadecimal number</source>
        <translation>Couleur en hexadécimal</translation>
    </message>
    <message id="color.eyedropper">
        <source>Pick a color from the screen</source>
        <translation>Prélever une couleur à l’écran</translation>
    </message>
    <message id="editor.copiedSelection">
        <source>Copied the selection</source>
        <translation>Sélection copiée</translation>
    </message>
    <message id="editor.distributeHorizontally">
        <source>Distribute Horizontally</source>
        <translation>Répartir horizontalement</translation>
    </message>
    <message id="editor.distributeVertically">
        <source>Distribute Vertically</source>
        <translation>Répartir verticalement</translation>
    </message>
    <message id="compress.compare.value">
        <source>%1 % before</source>
        <translation>%1 % avant</translation>
    </message>
    <message id="compress.compare.selectOne">
        <source>Select an image to compare it with its result</source>
        <translation>Sélectionnez une image pour la comparer à son résultat</translation>
    </message>
    <message id="compress.compare.before">
        <source>Before</source>
        <translation>Avant</translation>
    </message>
    <message id="compress.compare.after">
        <source>After</source>
        <translation>Après</translation>
    </message>
    <message id="compress.compare.fit">
        <source>Show the whole picture</source>
        <translation>Afficher l’image entière</translation>
    </message>
    <message id="compress.compare.actual">
        <source>Show at 100 %</source>
        <translation>Afficher à 100 %</translation>
    </message>
    <message id="compress.compare.zoom">
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message id="compress.compare.busy">
        <source>The result is being made</source>
        <translation>Le résultat est en cours de création</translation>
    </message>
    <message id="compress.compare.name">
        <source>Before and after</source>
        <translation>Avant et après</translation>
    </message>
    <message id="compress.compare.help">
        <source>The arrow keys move the divider. B shows only the picture before.</source>
        <translation>Les touches fléchées déplacent le séparateur. B n’affiche que l’image d’avant.</translation>
    </message>
    <message id="compress.drop.hint">
        <source>Drop images or folders here</source>
        <translation>Déposez des images ou des dossiers ici</translation>
    </message>
    <message id="compress.drop.more">
        <source>or paste them with %1. Originals are never changed, and results are never larger.</source>
        <translation>ou collez-les avec %1. Les originaux ne sont jamais modifiés et les résultats ne sont jamais plus gros.</translation>
    </message>
    <message id="compress.drop.choose">
        <source>Choose Images…</source>
        <translation>Choisir des images…</translation>
    </message>
    <message id="compress.cancel">
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message id="compress.cancelTip">
        <source>Stop compressing (Esc)</source>
        <translation>Arrêter la compression (Échap)</translation>
    </message>
    <message id="compress.actionOne">
        <source>Compress 1 Image</source>
        <translation>Compresser 1 image</translation>
    </message>
    <message id="compress.actionMany">
        <source>Compress %1 Images</source>
        <translation>Compresser %1 images</translation>
    </message>
    <message id="compress.actionNone">
        <source>Compress</source>
        <translation>Compresser</translation>
    </message>
    <message id="compress.progress.count">
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message id="compress.toast.failed" numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n échec</numerusform>
            <numerusform>%n échecs</numerusform>
        </translation>
    </message>
    <message id="compress.row.keptTip">
        <source>Nothing smaller was found in this format and size</source>
        <translation>Rien de plus petit n’a été trouvé dans ce format et cette taille</translation>
    </message>
    <message id="compress.row.resultTip">
        <source>Result: %1</source>
        <translation>Résultat : %1</translation>
    </message>
    <message id="compress.row.flattenedTip">
        <source>This format cannot be transparent: the background became white</source>
        <translation>Ce format ne connaît pas la transparence : le fond est devenu blanc</translation>
    </message>
    <message id="compress.command.retry">
        <source>Try Again</source>
        <translation>Réessayer</translation>
    </message>
    <message id="compress.command.reveal">
        <source>Show Result in Folder</source>
        <translation>Afficher le résultat dans son dossier</translation>
    </message>
    <message id="compress.command.remove">
        <source>Remove from List</source>
        <translation>Retirer de la liste</translation>
    </message>
    <message id="compress.list">
        <source>Images</source>
        <translation>Images</translation>
    </message>
    <message id="compress.settingsTitle">
        <source>Settings</source>
        <translation>Réglages</translation>
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
        <translation>Chaque image garde son format</translation>
    </message>
    <message id="compress.format.jpegTip">
        <source>For photos; no transparency</source>
        <translation>Pour les photos ; sans transparence</translation>
    </message>
    <message id="compress.format.pngTip">
        <source>Exact to the pixel; for screenshots and drawings</source>
        <translation>Exact au pixel près ; pour captures et dessins</translation>
    </message>
    <message id="compress.format.webpTip">
        <source>Smallest, for the web; keeps transparency</source>
        <translation>Le plus petit, pour le Web ; garde la transparence</translation>
    </message>
    <message id="compress.label.quality">
        <source>Quality</source>
        <translation>Qualité</translation>
    </message>
    <message id="compress.quality.percent">
        <source>%1%</source>
        <translation>%1 %</translation>
    </message>
    <message id="compress.quality.unused">
        <source>Nothing is lost in these formats, so quality changes nothing.</source>
        <translation>Rien ne se perd dans ces formats, la qualité n’y change donc rien.</translation>
    </message>
    <message id="compress.label.resize">
        <source>Resize</source>
        <translation>Redimensionner</translation>
    </message>
    <message id="compress.resize.fixed">
        <source>%1 – at most %2 px</source>
        <translation>%1 – au plus %2 px</translation>
    </message>
    <message id="compress.resize.off">
        <source>Off</source>
        <translation>Désactivé</translation>
    </message>
    <message id="compress.resize.custom">
        <source>Custom</source>
        <translation>Personnalisé</translation>
    </message>
    <message id="compress.resize.customTip">
        <source>Longest edge in pixels. Smaller images stay as they are.</source>
        <translation>Plus grand côté en pixels. Les images plus petites restent telles quelles.</translation>
    </message>
    <message id="compress.resize.pixels">
        <source>pixels</source>
        <translation>pixels</translation>
    </message>
    <message id="compress.label.output">
        <source>Save results</source>
        <translation>Enregistrer les résultats</translation>
    </message>
    <message id="compress.output.source">
        <source>Beside the originals</source>
        <translation>À côté des originaux</translation>
    </message>
    <message id="compress.output.custom">
        <source>In another folder</source>
        <translation>Dans un autre dossier</translation>
    </message>
    <message id="compress.output.choose">
        <source>Choose…</source>
        <translation>Choisir…</translation>
    </message>
    <message id="compress.output.chooseTitle">
        <source>Choose a folder for the results</source>
        <translation>Choisir un dossier pour les résultats</translation>
    </message>
    <message id="compress.keepMetadata">
        <source>Keep metadata</source>
        <translation>Garder les métadonnées</translation>
    </message>
    <message id="compress.keepMetadataHelp">
        <source>Camera, place, author. Off: nobody learns where a photo was taken.</source>
        <translation>Appareil, lieu, auteur. Désactivé : personne ne sait où une photo a été prise.</translation>
    </message>
    <message id="compress.keepDates">
        <source>Keep dates</source>
        <translation>Garder les dates</translation>
    </message>
    <message id="compress.keepDatesHelp">
        <source>Results get the file dates of their originals.</source>
        <translation>Les résultats reçoivent les dates de leurs originaux.</translation>
    </message>
    <message id="compress.row.kept">
        <source>Kept as it was</source>
        <translation>Laissée telle quelle</translation>
    </message>
    <message id="compress.row.metadataRemoved">
        <source>Only metadata removed</source>
        <translation>Métadonnées seules retirées</translation>
    </message>
    <message id="compress.size.gigabytes">
        <source>%1 GB</source>
        <translation>%1 Go</translation>
    </message>
    <message id="compress.size.megabytes">
        <source>%1 MB</source>
        <translation>%1 Mo</translation>
    </message>
    <message id="compress.size.kilobytes">
        <source>%1 kB</source>
        <translation>%1 ko</translation>
    </message>
    <message id="compress.size.bytes">
        <source>%1 B</source>
        <translation>%1 o</translation>
    </message>
    <message id="compress.row.smaller">
        <source>%1% smaller</source>
        <translation>%1 % de moins</translation>
    </message>
    <message id="compress.row.larger">
        <source>%1% larger</source>
        <translation>%1 % de plus</translation>
    </message>
    <message id="compress.row.pixels">
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message id="compress.progress.secondsLeft" numerus="yes">
        <source>%n second(s) left</source>
        <translation>
            <numerusform>%n seconde restante</numerusform>
            <numerusform>%n secondes restantes</numerusform>
        </translation>
    </message>
    <message id="compress.progress.minutesLeft" numerus="yes">
        <source>%n minute(s) left</source>
        <translation>
            <numerusform>%n minute restante</numerusform>
            <numerusform>%n minutes restantes</numerusform>
        </translation>
    </message>
    <message id="compress.failure.notFound">
        <source>The file is no longer there</source>
        <translation>Le fichier n’est plus là</translation>
    </message>
    <message id="compress.failure.notPermitted">
        <source>You are not allowed to read or write here</source>
        <translation>Vous n’avez pas le droit de lire ou d’écrire ici</translation>
    </message>
    <message id="compress.failure.notAFile">
        <source>This is not a file</source>
        <translation>Ce n’est pas un fichier</translation>
    </message>
    <message id="compress.failure.notAPicture">
        <source>This is not an image</source>
        <translation>Ce n’est pas une image</translation>
    </message>
    <message id="compress.failure.tooLarge">
        <source>The image is too large</source>
        <translation>L’image est trop grande</translation>
    </message>
    <message id="compress.failure.unsupported">
        <source>This kind of image is not supported</source>
        <translation>Ce type d’image n’est pas pris en charge</translation>
    </message>
    <message id="compress.failure.animated">
        <source>Animations and pages can only keep their format and size</source>
        <translation>Les animations et les pages ne peuvent que garder leur format et leur taille</translation>
    </message>
    <message id="compress.failure.damaged">
        <source>The file is damaged</source>
        <translation>Le fichier est endommagé</translation>
    </message>
    <message id="compress.failure.outOfMemory">
        <source>There is not enough memory</source>
        <translation>La mémoire est insuffisante</translation>
    </message>
    <message id="compress.failure.cannotEncode">
        <source>The image does not fit this format</source>
        <translation>L’image ne convient pas à ce format</translation>
    </message>
    <message id="compress.failure.diskFull">
        <source>The disk is full</source>
        <translation>Le disque est plein</translation>
    </message>
    <message id="compress.failure.writeFailed">
        <source>The result could not be written</source>
        <translation>Le résultat n’a pas pu être écrit</translation>
    </message>
    <message id="compress.row.cancelled">
        <source>Stopped</source>
        <translation>Arrêtée</translation>
    </message>
    <message id="compress.row.sizes">
        <source>%1 → %2</source>
        <translation>%1 → %2</translation>
    </message>
    <message id="compress.row.running">
        <source>Compressing…</source>
        <translation>Compression…</translation>
    </message>
    <message id="compress.row.same">
        <source>Same size</source>
        <translation>Même taille</translation>
    </message>
    <message id="compress.row.failed">
        <source>Failed</source>
        <translation>Échec</translation>
    </message>
    <message id="compress.badge.fullSize">
        <source>Full size</source>
        <translation>Taille réelle</translation>
    </message>
    <message id="compress.badge.maxEdge">
        <source>At most %1 px</source>
        <translation>Au plus %1 px</translation>
    </message>
    <message id="compress.badge.sourceFolder">
        <source>Source folder</source>
        <translation>Dossier source</translation>
    </message>
    <message id="compress.title">
        <source>Compress Images</source>
        <translation>Compresser des images</translation>
    </message>
    <message id="compress.command.addImages">
        <source>Add Images…</source>
        <translation>Ajouter des images…</translation>
    </message>
    <message id="compress.command.addFolder">
        <source>Add Folder…</source>
        <translation>Ajouter un dossier…</translation>
    </message>
    <message id="compress.command.paste">
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message id="compress.command.compare">
        <source>Compare Before and After</source>
        <translation>Comparer avant et après</translation>
    </message>
    <message id="compress.command.clear">
        <source>Remove All</source>
        <translation>Tout retirer</translation>
    </message>
    <message id="compress.command.settings">
        <source>Show or Hide Settings</source>
        <translation>Afficher ou masquer les réglages</translation>
    </message>
    <message id="compress.add">
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message id="compress.addTip">
        <source>Add images, folders, or captures</source>
        <translation>Ajouter des images, des dossiers ou des captures</translation>
    </message>
    <message id="compress.key.space">
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message id="compress.toast.nothingToPaste">
        <source>There is no image on the clipboard</source>
        <translation>Il n’y a pas d’image dans le presse-papiers</translation>
    </message>
    <message id="compress.pastedName">
        <source>Pasted Image %1</source>
        <translation>Image collée %1</translation>
    </message>
    <message id="compress.toast.nothingFound">
        <source>No new images were found there</source>
        <translation>Aucune nouvelle image n’y a été trouvée</translation>
    </message>
    <message id="compress.looking">
        <source>Looking for images…</source>
        <translation>Recherche d’images…</translation>
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
        <translation>Ajouter des images</translation>
    </message>
    <message id="compress.addImages.filter">
        <source>Images (%1)</source>
        <translation>Images (%1)</translation>
    </message>
    <message id="compress.addImages.allFiles">
        <source>All files (*)</source>
        <translation>Tous les fichiers (*)</translation>
    </message>
    <message id="compress.addFolder.title">
        <source>Add a folder of images</source>
        <translation>Ajouter un dossier d’images</translation>
    </message>
    <message id="compress.command.captures">
        <source>Recent Captures</source>
        <translation>Captures récentes</translation>
    </message>
    <message id="compress.toast.done" numerus="yes">
        <source>%n image(s) compressed</source>
        <translation>
            <numerusform>%n image compressée</numerusform>
            <numerusform>%n images compressées</numerusform>
        </translation>
    </message>
    <message id="compress.toast.savedPercent">
        <source>%1 saved (%2%)</source>
        <translation>%1 économisés (%2 %)</translation>
    </message>
    <message id="compress.toast.stopped" numerus="yes">
        <source>%n stopped</source>
        <translation>
            <numerusform>%n arrêtée</numerusform>
            <numerusform>%n arrêtées</numerusform>
        </translation>
    </message>
    <message id="editor.compress">
        <source>Compress…</source>
        <translation>Compresser…</translation>
    </message>
    <message id="recording.bar.level">
        <source>Level of the microphone</source>
        <translation>Niveau du micro</translation>
    </message>
    <message id="recording.bar.device">
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message id="recording.bar.start">
        <source>Start</source>
        <translation>Démarrer</translation>
    </message>
    <message id="recording.bar.startTip">
        <source>Start recording (Return)</source>
        <translation>Démarrer l’enregistrement (Entrée)</translation>
    </message>
    <message id="recording.camera.close">
        <source>Turn the camera off</source>
        <translation>Éteindre la caméra</translation>
    </message>
    <message id="recording.camera">
        <source>Camera</source>
        <translation>Caméra</translation>
    </message>
    <message id="recording.camera.help">
        <source>Drag to move, turn the wheel to resize</source>
        <translation>Faites glisser pour déplacer, tournez la molette pour redimensionner</translation>
    </message>
    <message id="recording.bar.resume">
        <source>Resume</source>
        <translation>Reprendre</translation>
    </message>
    <message id="recording.bar.pause">
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message id="recording.bar.sound.on">
        <source>Sound of the computer: on</source>
        <translation>Son de l’ordinateur : activé</translation>
    </message>
    <message id="recording.bar.sound.off">
        <source>Sound of the computer: off</source>
        <translation>Son de l’ordinateur : désactivé</translation>
    </message>
    <message id="recording.bar.keys.on">
        <source>Keystrokes are recorded</source>
        <translation>Les touches sont enregistrées</translation>
    </message>
    <message id="recording.bar.keys.off">
        <source>Keystrokes are not recorded</source>
        <translation>Les touches ne sont pas enregistrées</translation>
    </message>
    <message id="recording.bar.startingIn">
        <source>Starting in %1</source>
        <translation>Début dans %1</translation>
    </message>
    <message id="recording.bar.starting">
        <source>Starting…</source>
        <translation>Démarrage…</translation>
    </message>
    <message id="recording.bar">
        <source>Recording</source>
        <translation>Enregistrement</translation>
    </message>
    <message id="recording.bar.mic">
        <source>Microphone</source>
        <translation>Micro</translation>
    </message>
    <message id="recording.bar.mic.none">
        <source>No microphone</source>
        <translation>Aucun micro</translation>
    </message>
    <message id="recording.bar.camera">
        <source>Camera</source>
        <translation>Caméra</translation>
    </message>
    <message id="recording.bar.camera.none">
        <source>No camera</source>
        <translation>Aucune caméra</translation>
    </message>
    <message id="recording.bar.cancel">
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message id="recording.bar.elapsed">
        <source>Recorded time</source>
        <translation>Durée enregistrée</translation>
    </message>
    <message id="recording.bar.stop">
        <source>Stop and keep the recording</source>
        <translation>Arrêter et garder l’enregistrement</translation>
    </message>
    <message id="recording.bar.close">
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message id="recording.bar.keys.hidden">
        <source>A password is being typed: keystrokes are not recorded</source>
        <translation>Un mot de passe est saisi : les touches ne sont pas enregistrées</translation>
    </message>
    <message id="recording.countdown" numerus="yes">
        <source>Recording starts in %n second(s)</source>
        <translation>
            <numerusform>L’enregistrement commence dans %n seconde</numerusform>
            <numerusform>L’enregistrement commence dans %n secondes</numerusform>
        </translation>
    </message>
    <message id="alert.ok">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="recording.error.writerSetupFailed">
        <source>Failed to set up the video writer.</source>
        <translation>L’écriture de la vidéo n’a pas pu être préparée.</translation>
    </message>
    <message id="recording.error.writeFailed">
        <source>Failed to write the recording.</source>
        <translation>L’enregistrement n’a pas pu être écrit.</translation>
    </message>
    <message id="recording.error.displayNotFound">
        <source>Could not find the display to record.</source>
        <translation>L’écran à enregistrer est introuvable.</translation>
    </message>
    <message id="recording.error.windowNotFound">
        <source>Could not find the window to record.</source>
        <translation>La fenêtre à enregistrer est introuvable.</translation>
    </message>
    <message id="recording.error.micNotFound">
        <source>Could not find the selected microphone.</source>
        <translation>Le micro choisi est introuvable.</translation>
    </message>
    <message id="recording.error.cameraNotFound">
        <source>Could not find the selected camera.</source>
        <translation>La caméra choisie est introuvable.</translation>
    </message>
    <message id="toast.recordingFailed">
        <source>The recording could not be kept</source>
        <translation>L’enregistrement n’a pas pu être conservé</translation>
    </message>
    <message id="record.keyboard.saveFailed">
        <source>The recording is complete, but its keystrokes could not be saved</source>
        <translation>L’enregistrement est complet, mais ses touches n’ont pas pu être enregistrées</translation>
    </message>
    <message id="recording.mic.unavailable">
        <source>The microphone cannot be used: recording without it</source>
        <translation>Le micro ne peut pas être utilisé : enregistrement sans lui</translation>
    </message>
    <message id="recording.mic.lost">
        <source>The microphone is gone: the recording goes on without sound from it</source>
        <translation>Le micro a disparu : l’enregistrement continue sans son de sa part</translation>
    </message>
    <message id="recording.camera.lost">
        <source>The camera is gone: the recording goes on without it</source>
        <translation>La caméra a disparu : l’enregistrement continue sans elle</translation>
    </message>
    <message id="recording.disk.low">
        <source>The disk has room for about five more minutes of recording</source>
        <translation>Le disque a de la place pour environ cinq minutes d’enregistrement</translation>
    </message>
    <message id="recording.disk.full">
        <source>The recording was stopped because the disk is nearly full. Everything so far is kept.</source>
        <translation>L’enregistrement a été arrêté car le disque est presque plein. Tout ce qui précède est conservé.</translation>
    </message>
    <message id="recording.stopped">
        <source>What was being recorded is gone. The recording up to then is kept.</source>
        <translation>Ce qui était enregistré a disparu. L’enregistrement jusque-là est conservé.</translation>
    </message>
    <message id="record.keyboard.permission.title">
        <source>Keystrokes cannot be recorded</source>
        <translation>Les touches ne peuvent pas être enregistrées</translation>
    </message>
    <message id="record.keyboard.permission.body">
        <source>This desktop does not let programs see which keys are pressed. The rest is recorded as usual.</source>
        <translation>Ce bureau ne laisse pas les programmes voir les touches enfoncées. Le reste est enregistré comme d’habitude.</translation>
    </message>
    <message id="alert.importVideo.unreadable.title">
        <source>This file cannot be read as a video</source>
        <translation>Ce fichier ne peut pas être lu comme une vidéo</translation>
    </message>
    <message id="recording.startFailed">
        <source>The recording could not be started</source>
        <translation>L’enregistrement n’a pas pu démarrer</translation>
    </message>
    <message id="recording.region.fullDisplay">
        <source>Full display</source>
        <translation>Écran entier</translation>
    </message>
    <message id="recording.region.square">
        <source>Square</source>
        <translation>Carré</translation>
    </message>
    <message id="recording.region.presets">
        <source>Sizes and shapes</source>
        <translation>Tailles et formes</translation>
    </message>
    <message id="recording.region.badge">
        <source>Size of the recording; drag to move it</source>
        <translation>Taille de l’enregistrement ; faites glisser pour déplacer</translation>
    </message>
    <message id="recording.region.sizes">
        <source>%1 px · %2 pt</source>
        <translation>%1 px · %2 pt</translation>
    </message>
    <message id="toast.recordingsRecovered" numerus="yes">
        <source>%n interrupted recording(s) saved: look under Recent Recordings</source>
        <translation>
            <numerusform>%n enregistrement interrompu a été sauvé : il se trouve dans les enregistrements récents</numerusform>
            <numerusform>%n enregistrements interrompus ont été sauvés : ils se trouvent dans les enregistrements récents</numerusform>
        </translation>
    </message>
    <message id="toast.recordingNotOpened">
        <source>This recording cannot be opened: it has no movie</source>
        <translation>Impossible d’ouvrir cet enregistrement : il ne contient pas de vidéo</translation>
    </message>
    <message id="record.source.region">
        <source>Region</source>
        <translation>Zone</translation>
    </message>
    <message id="record.source.window">
        <source>Window</source>
        <translation>Fenêtre</translation>
    </message>
    <message id="record.source.fullscreen">
        <source>Full screen</source>
        <translation>Plein écran</translation>
    </message>
    <message id="import.video.title">
        <source>Import a video</source>
        <translation>Importer une vidéo</translation>
    </message>
    <message id="import.video.filter">
        <source>Videos (%1)</source>
        <translation>Vidéos (%1)</translation>
    </message>
    <message id="import.video.all">
        <source>All files (*)</source>
        <translation>Tous les fichiers (*)</translation>
    </message>
    <message id="toast.importingVideo">
        <source>Importing the video…</source>
        <translation>Importation de la vidéo…</translation>
    </message>
    <message id="toast.importNotCopied">
        <source>The video could not be copied into the recordings folder</source>
        <translation>Impossible de copier la vidéo dans le dossier des enregistrements</translation>
    </message>
    <message id="player.picture">
        <source>Picture</source>
        <translation>Image</translation>
    </message>
    <message id="player.play">
        <source>Play</source>
        <translation>Lire</translation>
    </message>
    <message id="player.sound">
        <source>Sound</source>
        <translation>Son</translation>
    </message>
    <message id="player.reveal">
        <source>Show in Folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
    <message id="player.notPlayable">
        <source>The movie of this recording cannot be played. Its folder may still hold what was recorded.</source>
        <translation>La vidéo de cet enregistrement ne peut pas être lue. Son dossier contient peut-être encore ce qui a été enregistré.</translation>
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
        <source>This computer&apos;s sound cannot be recorded: the recording goes on without it</source>
        <translation>Le son de cet ordinateur ne peut pas être enregistré : l’enregistrement continue sans lui</translation>
    </message>
    <message id="recording.camera.unavailable">
        <source>The camera cannot be used: recording without it</source>
        <translation>La caméra ne peut pas être utilisée : enregistrement sans elle</translation>
    </message>
    <message id="recording.mic.returned">
        <source>The microphone is back and recorded again</source>
        <translation>Le micro est de retour et de nouveau enregistré</translation>
    </message>
    <message id="recording.systemSound.returned">
        <source>This computer&apos;s sound is recorded again</source>
        <translation>Le son de cet ordinateur est de nouveau enregistré</translation>
    </message>
</context>
</TS>
