<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name></name>
    <message id="toast.noTray">
        <source>Vellora is running. This desktop has no tray: start Vellora again to see its commands.</source>
        <translation>Vellora se está ejecutando. Este escritorio no tiene bandeja del sistema: inicie Vellora de nuevo para ver sus comandos.</translation>
    </message>
    <message id="toast.reopenFailed">
        <source>This capture can no longer be read</source>
        <translation>Esta captura ya no se puede leer</translation>
    </message>
    <message id="alert.clearHistory.title">
        <source>Clear the capture history?</source>
        <translation>¿Borrar el historial de capturas?</translation>
    </message>
    <message id="alert.clearHistory.body">
        <source>The recent captures will be deleted. Saved files stay where they are.</source>
        <translation>Se eliminarán las últimas capturas. Los archivos guardados permanecen donde están.</translation>
    </message>
    <message id="alert.clearHistory.confirm">
        <source>Clear History</source>
        <translation>Borrar historial</translation>
    </message>
    <message id="alert.cancel">
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message id="load.file.title">
        <source>Open a picture</source>
        <translation>Abrir una imagen</translation>
    </message>
    <message id="load.file.filter">
        <source>Pictures (%1)</source>
        <translation>Imágenes (%1)</translation>
    </message>
    <message id="alert.cleanupRecordings.title" numerus="yes">
        <source>Move %n recording(s) to the Trash?</source>
        <translation>
            <numerusform>¿Mover %n grabación a la papelera?</numerusform>
            <numerusform>¿Mover %n grabaciones a la papelera?</numerusform>
        </translation>
    </message>
    <message id="alert.cleanupRecordings.body">
        <source>They take up %1.</source>
        <translation>Espacio ocupado: %1.</translation>
    </message>
    <message id="alert.cleanupRecordings.openNote">
        <source>Recordings that are open stay.</source>
        <translation>Las grabaciones abiertas se conservan.</translation>
    </message>
    <message id="alert.cleanupRecordings.confirm">
        <source>Move to Trash</source>
        <translation>Mover a la papelera</translation>
    </message>
    <message id="toast.recordingsTrashed">
        <source>Recordings moved to the Trash</source>
        <translation>Grabaciones movidas a la papelera</translation>
    </message>
    <message id="alert.screenRecording.title">
        <source>Vellora is not allowed to see the screen</source>
        <translation>Vellora no tiene permiso para ver la pantalla</translation>
    </message>
    <message id="alert.screenRecording.body">
        <source>Allow Vellora to record the screen in the desktop&apos;s privacy settings, then try again.</source>
        <translation>Permita que Vellora grabe la pantalla en la configuración de privacidad del escritorio e inténtelo de nuevo.</translation>
    </message>
    <message id="alert.accessibility.title">
        <source>Vellora is not allowed to follow the pointer</source>
        <translation>Vellora no tiene permiso para seguir el puntero</translation>
    </message>
    <message id="alert.accessibility.body">
        <source>Allow Vellora to use accessibility in the desktop&apos;s privacy settings, then try again.</source>
        <translation>Permita que Vellora use las funciones de accesibilidad en la configuración de privacidad del escritorio e inténtelo de nuevo.</translation>
    </message>
    <message id="alert.screenRecording.open">
        <source>Open Settings</source>
        <translation>Abrir configuración</translation>
    </message>
    <message id="load.error.noPicture">
        <source>No picture could be read from the clipboard</source>
        <translation>No se pudo leer ninguna imagen del portapapeles</translation>
    </message>
    <message id="settings.about.title">
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message id="settings.about.summary">
        <source>Screenshots, recordings and live streams</source>
        <translation>Capturas de pantalla, grabaciones y emisiones en directo</translation>
    </message>
    <message id="settings.about.version">
        <source>Version %1</source>
        <translation>Versión %1</translation>
    </message>
    <message id="settings.about.licence">
        <source>Licence</source>
        <translation>Licencia</translation>
    </message>
    <message id="settings.about.website">
        <source>Website</source>
        <translation>Sitio web</translation>
    </message>
    <message id="settings.about.issues">
        <source>Report a problem</source>
        <translation>Informar de un problema</translation>
    </message>
    <message id="settings.about.licences">
        <source>Licences of fonts, icons and libraries</source>
        <translation>Licencias de tipos de letra, iconos y bibliotecas</translation>
    </message>
    <message id="settings.general.title">
        <source>General</source>
        <translation>General</translation>
    </message>
    <message id="settings.general.afterCapture">
        <source>After a capture</source>
        <translation>Después de una captura</translation>
    </message>
    <message id="settings.clipboard.title">
        <source>Clipboard</source>
        <translation>Portapapeles</translation>
    </message>
    <message id="settings.clipboard.copyAs">
        <source>Copy captures as</source>
        <translation>Copiar las capturas como</translation>
    </message>
    <message id="settings.clipboard.info">
        <source>Some programs paste files, others paste pictures. With both, each takes the one it understands.</source>
        <translation>Algunas aplicaciones pegan archivos; otras, imágenes. Con ambos, cada una toma lo que entiende.</translation>
    </message>
    <message id="settings.general.saving">
        <source>Saving</source>
        <translation>Guardado</translation>
    </message>
    <message id="settings.general.saveFolder">
        <source>Folder for captures</source>
        <translation>Carpeta de capturas</translation>
    </message>
    <message id="settings.general.choose">
        <source>Choose…</source>
        <translation>Elegir…</translation>
    </message>
    <message id="settings.general.resetDesktop">
        <source>Use Desktop Folder</source>
        <translation>Usar el Escritorio</translation>
    </message>
    <message id="settings.general.resetDesktopHelp">
        <source>Save captures to the Desktop folder again</source>
        <translation>Volver a guardar las capturas en la carpeta Escritorio</translation>
    </message>
    <message id="settings.general.language">
        <source>Language</source>
        <translation>Idioma</translation>
    </message>
    <message id="settings.general.interfaceLanguage">
        <source>Language of the interface</source>
        <translation>Idioma de la interfaz</translation>
    </message>
    <message id="settings.general.systemLanguage">
        <source>System language</source>
        <translation>Idioma del sistema</translation>
    </message>
    <message id="settings.general.keepOneAction">
        <source>At least one action has to stay on.</source>
        <translation>Al menos una acción debe permanecer activada.</translation>
    </message>
    <message id="settings.general.chooseTitle">
        <source>Choose a folder for captures</source>
        <translation>Elegir una carpeta para las capturas</translation>
    </message>
    <message id="settings.general.showEditor">
        <source>Open in the editor</source>
        <translation>Abrir en el editor</translation>
    </message>
    <message id="settings.general.copy">
        <source>Copy to the clipboard</source>
        <translation>Copiar al portapapeles</translation>
    </message>
    <message id="settings.general.save">
        <source>Save as a file</source>
        <translation>Guardar como archivo</translation>
    </message>
    <message id="settings.general.pin">
        <source>Pin to the screen</source>
        <translation>Fijar en la pantalla</translation>
    </message>
    <message id="settings.general.showEditorHelp">
        <source>In the editor, ready to be annotated.</source>
        <translation>En el editor, lista para anotarla.</translation>
    </message>
    <message id="settings.general.copyHelp">
        <source>Ready to be pasted into another program.</source>
        <translation>Lista para pegarla en otra aplicación.</translation>
    </message>
    <message id="settings.general.saveHelp">
        <source>As a PNG picture in the folder below.</source>
        <translation>Como imagen PNG en la carpeta indicada más abajo.</translation>
    </message>
    <message id="settings.general.pinHelp">
        <source>It stays above all windows. Takes the place of the editor.</source>
        <translation>Queda por encima de todas las ventanas y sustituye al editor.</translation>
    </message>
    <message id="settings.clipboard.fileAndImage">
        <source>File and picture</source>
        <translation>Archivo e imagen</translation>
    </message>
    <message id="settings.clipboard.fileOnly">
        <source>File only</source>
        <translation>Solo archivo</translation>
    </message>
    <message id="settings.clipboard.imageOnly">
        <source>Picture only</source>
        <translation>Solo imagen</translation>
    </message>
    <message id="settings.shortcuts.title">
        <source>Shortcuts</source>
        <translation>Atajos</translation>
    </message>
    <message id="settings.title">
        <source>Vellora Settings</source>
        <translation>Configuración de Vellora</translation>
    </message>
    <message id="settings.pages">
        <source>Settings pages</source>
        <translation>Páginas de configuración</translation>
    </message>
    <message id="shortcut.recording">
        <source>Press the keys…</source>
        <translation>Pulse las teclas…</translation>
    </message>
    <message id="shortcut.recordingHelp">
        <source>Press the new combination. Esc stops, Delete goes back to the default.</source>
        <translation>Pulse la nueva combinación. Esc cancela, Supr restablece el valor predeterminado.</translation>
    </message>
    <message id="shortcut.none">
        <source>None</source>
        <translation>Ninguno</translation>
    </message>
    <message id="shortcut.startHelp">
        <source>Click to record another combination</source>
        <translation>Haga clic para definir otra combinación</translation>
    </message>
    <message id="settings.shortcuts.conflict">
        <source>%1 already belongs to “%2”.</source>
        <translation>%1 ya pertenece a «%2».</translation>
    </message>
    <message id="settings.shortcuts.group">
        <source>Global shortcuts</source>
        <translation>Atajos globales</translation>
    </message>
    <message id="settings.shortcuts.info">
        <source>They work in every program. Click a shortcut and press the new combination: with Ctrl, Alt or Super, or a function key alone.</source>
        <oldsource>They work in every program. Click a shortcut, then press the new combination: with Ctrl, Alt or Super, or a
</oldsource>
        <translation>Funcionan en todas las aplicaciones. Haga clic en un atajo y pulse la nueva combinación: con Ctrl, Alt o Súper, o una tecla de función sola.</translation>
    </message>
    <message id="shortcut.reset">
        <source>Back to the default</source>
        <translation>Restablecer el valor predeterminado</translation>
    </message>
    <message id="settings.shortcuts.heldElsewhere">
        <source>Another program holds %1. Choose another combination, or free it there.</source>
        <translation>Otra aplicación usa %1. Elija otra combinación o libérela en esa aplicación.</translation>
    </message>
    <message id="settings.shortcuts.fnHint">
        <source>If the F-keys of this keyboard do something else, hold Fn as well.</source>
        <translation>Si las teclas F de este teclado hacen otra cosa, mantenga pulsada también la tecla Fn.</translation>
    </message>
    <message id="menu.captureArea">
        <source>Capture Area</source>
        <translation>Capturar área</translation>
    </message>
    <message id="menu.captureWindow">
        <source>Capture Window</source>
        <translation>Capturar ventana</translation>
    </message>
    <message id="menu.captureFullscreen">
        <source>Capture Full Screen</source>
        <translation>Capturar pantalla completa</translation>
    </message>
    <message id="menu.captureScrolling">
        <source>Capture Scrolling Page</source>
        <translation>Capturar con desplazamiento</translation>
    </message>
    <message id="menu.captureText">
        <source>Capture Text</source>
        <translation>Capturar texto</translation>
    </message>
    <message id="menu.moreCaptures">
        <source>More Captures</source>
        <translation>Más capturas</translation>
    </message>
    <message id="menu.captureElement">
        <source>Capture Element</source>
        <translation>Capturar elemento</translation>
    </message>
    <message id="menu.captureAreaSized">
        <source>Capture Fixed Size…</source>
        <translation>Capturar tamaño fijo…</translation>
    </message>
    <message id="menu.captureFullscreenDelayed">
        <source>Capture Full Screen in 3 Seconds</source>
        <translation>Capturar pantalla completa en 3&#xa0;segundos</translation>
    </message>
    <message id="menu.loadFromClipboard">
        <source>Load from Clipboard</source>
        <translation>Cargar desde el portapapeles</translation>
    </message>
    <message id="menu.loadFromFile">
        <source>Load from File…</source>
        <translation>Cargar desde un archivo…</translation>
    </message>
    <message id="menu.reopen">
        <source>Reopen Last Capture</source>
        <translation>Reabrir la última captura</translation>
    </message>
    <message id="menu.reopenMore">
        <source>Recent Captures</source>
        <translation>Capturas recientes</translation>
    </message>
    <message id="menu.clearHistory">
        <source>Clear History…</source>
        <translation>Borrar historial…</translation>
    </message>
    <message id="menu.compressImages">
        <source>Compress Images…</source>
        <translation>Comprimir imágenes…</translation>
    </message>
    <message id="menu.recordRegion">
        <source>Record Area</source>
        <translation>Grabar área</translation>
    </message>
    <message id="menu.stopRecording">
        <source>Stop Recording</source>
        <translation>Detener grabación</translation>
    </message>
    <message id="menu.pauseRecording">
        <source>Pause Recording</source>
        <translation>Pausar grabación</translation>
    </message>
    <message id="menu.resumeRecording">
        <source>Resume Recording</source>
        <translation>Reanudar grabación</translation>
    </message>
    <message id="menu.recordWindow">
        <source>Record Window</source>
        <translation>Grabar ventana</translation>
    </message>
    <message id="menu.recordFullscreen">
        <source>Record Full Screen</source>
        <translation>Grabar pantalla completa</translation>
    </message>
    <message id="menu.recentRecordings">
        <source>Recent Recordings</source>
        <translation>Grabaciones recientes</translation>
    </message>
    <message id="menu.openRecordingsFolder">
        <source>Open Recordings Folder</source>
        <translation>Abrir la carpeta de grabaciones</translation>
    </message>
    <message id="menu.cleanupRecordings">
        <source>Clean Up Recordings…</source>
        <translation>Limpiar grabaciones…</translation>
    </message>
    <message id="menu.importVideo">
        <source>Import Video…</source>
        <translation>Importar vídeo…</translation>
    </message>
    <message id="menu.startLive">
        <source>Go Live…</source>
        <translation>Emitir en directo…</translation>
    </message>
    <message id="menu.stopLive">
        <source>Stop Live</source>
        <translation>Detener el directo</translation>
    </message>
    <message id="menu.settings">
        <source>Settings…</source>
        <translation>Configuración…</translation>
    </message>
    <message id="menu.quit">
        <source>Quit Vellora</source>
        <translation>Salir de Vellora</translation>
    </message>
    <message id="toast.copiedAndSavedTo">
        <source>Copied and saved to %1</source>
        <translation>Copiada y guardada en %1</translation>
    </message>
    <message id="toast.copied">
        <source>Copied</source>
        <translation>Copiada</translation>
    </message>
    <message id="toast.savedTo">
        <source>Saved to %1</source>
        <translation>Guardada en %1</translation>
    </message>
    <message id="toast.captureOutputFailed">
        <source>Copying or saving failed; the capture is kept in the history</source>
        <translation>No se pudo copiar o guardar; la captura se conserva en el historial</translation>
    </message>
    <message id="toast.saveFailed">
        <source>Saving to %1 failed; the capture is kept in the history</source>
        <translation>No se pudo guardar en %1; la captura se conserva en el historial</translation>
    </message>
    <message id="countdown.help">
        <source>Capture in a moment. Click or press Escape to cancel.</source>
        <translation>La captura se hará en un momento. Haga clic o pulse Esc para cancelar.</translation>
    </message>
    <message id="countdown.name">
        <source>Countdown</source>
        <translation>Cuenta atrás</translation>
    </message>
    <message id="overlay.badge.scaledSize">
        <source>%1 px  ·  %2 × %3 pt</source>
        <translation>%1&#xa0;px  ·  %2 × %3&#xa0;pt</translation>
    </message>
    <message id="overlay.hint.area">
        <source>Drag an area or click a window  ·  Space from the keyboard  ·  Esc cancels</source>
        <translation>Arrastre un área o haga clic en una ventana  ·  Espacio: con el teclado  ·  Esc: cancelar</translation>
    </message>
    <message id="overlay.hint.text">
        <source>Drag over the text to read  ·  Esc cancels</source>
        <translation>Arrastre sobre el texto que se va a leer  ·  Esc: cancelar</translation>
    </message>
    <message id="overlay.hint.scrolling">
        <source>Drag over the part that scrolls  ·  Esc cancels</source>
        <translation>Arrastre sobre la parte que se desplaza  ·  Esc: cancelar</translation>
    </message>
    <message id="overlay.hint.recording">
        <source>Drag the area to record or click a window  ·  Esc cancels</source>
        <translation>Arrastre el área que desea grabar o haga clic en una ventana  ·  Esc: cancelar</translation>
    </message>
    <message id="overlay.hint.adjust">
        <source>Drag the handles or use the arrow keys  ·  Return takes it  ·  Esc starts over</source>
        <translation>Arrastre los tiradores o use las teclas de flecha  ·  Intro: aceptar  ·  Esc: empezar de nuevo</translation>
    </message>
    <message id="overlay.hint.window">
        <source>Click a window  ·  Tab goes through them  ·  Esc cancels</source>
        <translation>Haga clic en una ventana  ·  Tab: ventana siguiente  ·  Esc: cancelar</translation>
    </message>
    <message id="history.yesterday">
        <source>Yesterday</source>
        <translation>Ayer</translation>
    </message>
    <message id="load.error.notFound">
        <source>The file does not exist</source>
        <translation>El archivo no existe</translation>
    </message>
    <message id="load.error.notPermitted">
        <source>You may not read this file</source>
        <translation>No tiene permiso para leer este archivo</translation>
    </message>
    <message id="load.error.notAFile">
        <source>This is not a file</source>
        <translation>Esto no es un archivo</translation>
    </message>
    <message id="load.error.tooLarge">
        <source>The picture is too large</source>
        <translation>La imagen es demasiado grande</translation>
    </message>
    <message id="load.error.notAnImage">
        <source>This is not a picture Vellora can read</source>
        <translation>Esto no es una imagen que Vellora pueda leer</translation>
    </message>
    <message id="load.error.unsupported">
        <source>This kind of picture cannot be read</source>
        <translation>Este tipo de imagen no se puede leer</translation>
    </message>
    <message id="load.error.outOfMemory">
        <source>There is not enough memory for the picture</source>
        <translation>No hay suficiente memoria para la imagen</translation>
    </message>
    <message id="load.error.damaged">
        <source>The picture is damaged</source>
        <translation>La imagen está dañada</translation>
    </message>
    <message id="capture.error.windowGone">
        <source>The window is gone</source>
        <translation>La ventana ya no existe</translation>
    </message>
    <message id="capture.error.cropFailed">
        <source>Nothing of that area is on the screen any more</source>
        <translation>Ya no queda nada de esa área en la pantalla</translation>
    </message>
    <message id="capture.error.noDisplay">
        <source>The screen is not there any more</source>
        <translation>La pantalla ya no está disponible</translation>
    </message>
    <message id="capture.error.failed">
        <source>The screen cannot be captured</source>
        <translation>No se puede capturar la pantalla</translation>
    </message>
    <message id="toast.waylandSession">
        <source>This is a Wayland session: for now Vellora sees only programs that use X11</source>
        <translation>Esta es una sesión de Wayland: por ahora, Vellora solo ve las aplicaciones que usan X11</translation>
    </message>
    <message id="toast.recovered" numerus="yes">
        <source>%n capture(s) that were open when Vellora ended are in the history</source>
        <translation>
            <numerusform>%n captura que seguía abierta al cerrarse Vellora está en el historial</numerusform>
            <numerusform>%n capturas que seguían abiertas al cerrarse Vellora están en el historial</numerusform>
        </translation>
    </message>
    <message id="toast.pinFailed">
        <source>This picture cannot be pinned</source>
        <translation>Esta imagen no se puede fijar</translation>
    </message>
    <message id="menu.endClickThrough">
        <source>Let Clicks Reach the Pins Again</source>
        <translation>Volver a permitir clics en las imágenes fijadas</translation>
    </message>
    <message id="backdrop.frame.browserLight">
        <source>Browser window, light</source>
        <translation>Ventana de navegador, clara</translation>
    </message>
    <message id="backdrop.frame.laptopLight">
        <source>Laptop, light</source>
        <translation>Portátil, claro</translation>
    </message>
    <message id="backdrop.frame.phoneLight">
        <source>Phone, light</source>
        <translation>Teléfono, claro</translation>
    </message>
    <message id="backdrop.frame.browserDark">
        <source>Browser window, dark</source>
        <translation>Ventana de navegador, oscura</translation>
    </message>
    <message id="backdrop.frame.laptopDark">
        <source>Laptop, dark</source>
        <translation>Portátil, oscuro</translation>
    </message>
    <message id="backdrop.frame.phoneDark">
        <source>Phone, dark</source>
        <translation>Teléfono, oscuro</translation>
    </message>
    <message id="backdrop.title">
        <source>Backdrop</source>
        <translation>Fondo</translation>
    </message>
    <message id="backdrop.reset">
        <source>Back to the default backdrop</source>
        <translation>Restablecer el fondo predeterminado</translation>
    </message>
    <message id="backdrop.enabled">
        <source>Show the backdrop</source>
        <translation>Mostrar el fondo</translation>
    </message>
    <message id="backdrop.layout">
        <source>Layout</source>
        <translation>Disposición</translation>
    </message>
    <message id="backdrop.layout.margin">
        <source>Margin</source>
        <translation>Margen</translation>
    </message>
    <message id="backdrop.layout.radius">
        <source>Corner radius</source>
        <translation>Radio de las esquinas</translation>
    </message>
    <message id="backdrop.layout.shadow">
        <source>Shadow</source>
        <translation>Sombra</translation>
    </message>
    <message id="backdrop.aspect">
        <source>Aspect ratio</source>
        <translation>Relación de aspecto</translation>
    </message>
    <message id="backdrop.aspect.auto">
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
    <message id="backdrop.frame">
        <source>Frame</source>
        <translation>Marco</translation>
    </message>
    <message id="backdrop.frame.none">
        <source>No frame</source>
        <translation>Sin marco</translation>
    </message>
    <message id="backdrop.placement">
        <source>Placement</source>
        <translation>Colocación</translation>
    </message>
    <message id="backdrop.tiltX">
        <source>Tilt sideways</source>
        <translation>Inclinación horizontal</translation>
    </message>
    <message id="backdrop.tiltY">
        <source>Tilt up and down</source>
        <translation>Inclinación vertical</translation>
    </message>
    <message id="backdrop.rotation">
        <source>Rotation</source>
        <translation>Rotación</translation>
    </message>
    <message id="backdrop.contentScale">
        <source>Size</source>
        <translation>Tamaño</translation>
    </message>
    <message id="backdrop.contentOffset">
        <source>Position</source>
        <translation>Posición</translation>
    </message>
    <message id="backdrop.effects">
        <source>Effects</source>
        <translation>Efectos</translation>
    </message>
    <message id="backdrop.glow">
        <source>Glow</source>
        <translation>Resplandor</translation>
    </message>
    <message id="backdrop.glowCenter">
        <source>Center of the glow</source>
        <translation>Centro del resplandor</translation>
    </message>
    <message id="backdrop.grain">
        <source>Grain</source>
        <translation>Grano</translation>
    </message>
    <message id="backdrop.edgeBlur">
        <source>Edge blur</source>
        <translation>Desenfoque de bordes</translation>
    </message>
    <message id="backdrop.edgeBlur.none">
        <source>No edge blur</source>
        <translation>Sin desenfoque de bordes</translation>
    </message>
    <message id="backdrop.edgeBlur.bottom">
        <source>Blur the bottom</source>
        <translation>Desenfocar la parte inferior</translation>
    </message>
    <message id="backdrop.edgeBlur.left">
        <source>Blur the left</source>
        <translation>Desenfocar la izquierda</translation>
    </message>
    <message id="backdrop.edgeBlur.right">
        <source>Blur the right</source>
        <translation>Desenfocar la derecha</translation>
    </message>
    <message id="backdrop.edgeBlur.all">
        <source>Blur all edges</source>
        <translation>Desenfocar todos los bordes</translation>
    </message>
    <message id="backdrop.curated.arc">
        <source>Arc</source>
        <translation>Arco</translation>
    </message>
    <message id="backdrop.curated.haze">
        <source>Haze</source>
        <translation>Calima</translation>
    </message>
    <message id="backdrop.curated.lavender">
        <source>Lavender</source>
        <translation>Lavanda</translation>
    </message>
    <message id="backdrop.curated.ember">
        <source>Ember</source>
        <translation>Ascua</translation>
    </message>
    <message id="backdrop.curated.moss">
        <source>Moss</source>
        <translation>Musgo</translation>
    </message>
    <message id="backdrop.curated.lagoon">
        <source>Lagoon</source>
        <translation>Laguna</translation>
    </message>
    <message id="backdrop.curated.sky">
        <source>Sky</source>
        <translation>Cielo</translation>
    </message>
    <message id="backdrop.gradient.dawn">
        <source>Dawn</source>
        <translation>Alba</translation>
    </message>
    <message id="backdrop.gradient.peach">
        <source>Peach</source>
        <translation>Melocotón</translation>
    </message>
    <message id="backdrop.gradient.coral">
        <source>Coral</source>
        <translation>Coral</translation>
    </message>
    <message id="backdrop.gradient.dusk">
        <source>Dusk</source>
        <translation>Ocaso</translation>
    </message>
    <message id="backdrop.gradient.iris">
        <source>Iris</source>
        <translation>Iris</translation>
    </message>
    <message id="backdrop.gradient.indigo">
        <source>Indigo</source>
        <translation>Índigo</translation>
    </message>
    <message id="backdrop.gradient.ocean">
        <source>Ocean</source>
        <translation>Océano</translation>
    </message>
    <message id="backdrop.gradient.mist">
        <source>Mist</source>
        <translation>Bruma</translation>
    </message>
    <message id="backdrop.gradient.mint">
        <source>Mint</source>
        <translation>Menta</translation>
    </message>
    <message id="backdrop.gradient.forest">
        <source>Forest</source>
        <translation>Bosque</translation>
    </message>
    <message id="backdrop.gradient.slate">
        <source>Slate</source>
        <translation>Pizarra</translation>
    </message>
    <message id="backdrop.gradient.night">
        <source>Night</source>
        <translation>Noche</translation>
    </message>
    <message id="backdrop.color.white">
        <source>White</source>
        <translation>Blanco</translation>
    </message>
    <message id="backdrop.color.gray">
        <source>Gray</source>
        <translation>Gris</translation>
    </message>
    <message id="backdrop.color.black">
        <source>Black</source>
        <translation>Negro</translation>
    </message>
    <message id="backdrop.color.blue">
        <source>Blue</source>
        <translation>Azul</translation>
    </message>
    <message id="backdrop.color.purple">
        <source>Purple</source>
        <translation>Morado</translation>
    </message>
    <message id="backdrop.color.pink">
        <source>Pink</source>
        <translation>Rosa</translation>
    </message>
    <message id="backdrop.color.red">
        <source>Red</source>
        <translation>Rojo</translation>
    </message>
    <message id="backdrop.color.orange">
        <source>Orange</source>
        <translation>Naranja</translation>
    </message>
    <message id="backdrop.color.green">
        <source>Green</source>
        <translation>Verde</translation>
    </message>
    <message id="backdrop.color.teal">
        <source>Teal</source>
        <translation>Verde azulado</translation>
    </message>
    <message id="backdrop.background">
        <source>Background</source>
        <translation>Relleno</translation>
    </message>
    <message id="backdrop.ownPicture">
        <source>A picture of your own…</source>
        <translation>Imagen propia…</translation>
    </message>
    <message id="backdrop.ownColor">
        <source>Another color…</source>
        <translation>Otro color…</translation>
    </message>
    <message id="backdrop.ownPicture.title">
        <source>Choose a background picture</source>
        <translation>Elegir una imagen de fondo</translation>
    </message>
    <message id="backdrop.ownPicture.filter">
        <source>Pictures</source>
        <translation>Imágenes</translation>
    </message>
    <message id="backdrop.gradient.stops">
        <source>Colors of the gradient</source>
        <translation>Colores del degradado</translation>
    </message>
    <message id="backdrop.gradient.stopsHelp">
        <source>Drag a color to move it, away to remove it; click to add one</source>
        <translation>Arrastre un color para moverlo, hacia fuera para quitarlo; haga clic para añadir uno</translation>
    </message>
    <message id="backdrop.gradient.color">
        <source>Color of the stop</source>
        <translation>Color de este punto</translation>
    </message>
    <message id="backdrop.gradient.add">
        <source>Add a color</source>
        <translation>Añadir un color</translation>
    </message>
    <message id="backdrop.gradient.remove">
        <source>Remove the color</source>
        <translation>Quitar el color</translation>
    </message>
    <message id="backdrop.gradient.reverse">
        <source>Turn the gradient round</source>
        <translation>Invertir el degradado</translation>
    </message>
    <message id="backdrop.gradient.angle">
        <source>Angle</source>
        <translation>Ángulo</translation>
    </message>
    <message id="backdrop.styles">
        <source>Saved styles</source>
        <translation>Estilos guardados</translation>
    </message>
    <message id="backdrop.styles.save">
        <source>Save this style…</source>
        <translation>Guardar este estilo…</translation>
    </message>
    <message id="backdrop.styles.suggestion">
        <source>Style %1</source>
        <translation>Estilo %1</translation>
    </message>
    <message id="backdrop.styles.help">
        <source>Click applies the style; a right click renames, renews or deletes it</source>
        <translation>Clic: aplicar el estilo; clic derecho: cambiarle el nombre, reemplazarlo o eliminarlo</translation>
    </message>
    <message id="backdrop.styles.rename">
        <source>Rename…</source>
        <translation>Cambiar nombre…</translation>
    </message>
    <message id="backdrop.styles.renameAction">
        <source>Rename</source>
        <translation>Cambiar nombre</translation>
    </message>
    <message id="backdrop.styles.update">
        <source>Replace with the current backdrop</source>
        <translation>Reemplazar por el fondo actual</translation>
    </message>
    <message id="backdrop.styles.delete">
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message id="backdrop.styles.name">
        <source>Name of the style</source>
        <translation>Nombre del estilo</translation>
    </message>
    <message id="backdrop.styles.accept">
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message id="canvas.hint.drawLine">
        <source>Drag to draw  ·  Shift keeps to steps of 45°</source>
        <translation>Arrastre para dibujar · Mayús: pasos de 45°</translation>
    </message>
    <message id="canvas.hint.drawShape">
        <source>Drag to draw  ·  Shift makes it even, Alt starts from the center</source>
        <translation>Arrastre para dibujar · Mayús: cuadrado o círculo · Alt: desde el centro</translation>
    </message>
    <message id="canvas.hint.blur">
        <source>Drag over what should not be read</source>
        <translation>Arrastre sobre lo que no se deba leer</translation>
    </message>
    <message id="canvas.hint.magnifier">
        <source>Drag a lens over what should be larger</source>
        <translation>Arrastre sobre lo que se deba ampliar</translation>
    </message>
    <message id="canvas.hint.pen">
        <source>Drag to draw freehand</source>
        <translation>Arrastre para dibujar a mano alzada</translation>
    </message>
    <message id="canvas.hint.counter">
        <source>Click to place the next number, drag to point it</source>
        <translation>Haga clic para colocar el número siguiente o arrastre para orientar su punta</translation>
    </message>
    <message id="canvas.hint.text">
        <source>Click to type, drag for a width</source>
        <translation>Haga clic para escribir o arrastre para fijar el ancho</translation>
    </message>
    <message id="canvas.hint.cropping">
        <source>Drag the edges to crop  ·  Return takes it  ·  Esc leaves</source>
        <translation>Arrastre los bordes para recortar · Intro: aceptar · Esc: salir</translation>
    </message>
    <message id="canvas.hint.select">
        <source>Click to select, drag to select several</source>
        <translation>Haga clic para seleccionar o arrastre para seleccionar varios</translation>
    </message>
    <message id="canvas.hint.move">
        <source>Drag to move  ·  the arrow keys nudge</source>
        <translation>Arrastre para mover · Teclas de flecha: pasos pequeños</translation>
    </message>
    <message id="canvas.hint.crop">
        <source>Drag to crop</source>
        <translation>Arrastre para recortar</translation>
    </message>
    <message id="canvas.hint.resize">
        <source>Drag to resize  ·  Shift keeps it even, Alt keeps the center</source>
        <translation>Arrastre para cambiar el tamaño · Mayús: proporcional · Alt: desde el centro</translation>
    </message>
    <message id="canvas.hint.movePoint">
        <source>Drag to move this point</source>
        <translation>Arrastre para mover este punto</translation>
    </message>
    <message id="canvas.hint.turn">
        <source>Drag to turn</source>
        <translation>Arrastre para girar</translation>
    </message>
    <message id="canvas.hint.editText">
        <source>Click to place the cursor, drag to select text</source>
        <translation>Haga clic para colocar el cursor o arrastre para seleccionar texto</translation>
    </message>
    <message id="canvas.description" numerus="yes">
        <source>Picture of %1 pixels with %n annotation(s)</source>
        <translation>
            <numerusform>Imagen de %1 píxeles con %n anotación</numerusform>
            <numerusform>Imagen de %1 píxeles con %n anotaciones</numerusform>
        </translation>
    </message>
    <message id="canvas.description.selected" numerus="yes">
        <source>%n selected</source>
        <translation>
            <numerusform>%n seleccionada</numerusform>
            <numerusform>%n seleccionadas</numerusform>
        </translation>
    </message>
    <message id="canvas.name">
        <source>Canvas</source>
        <translation>Lienzo</translation>
    </message>
    <message id="canvas.hint.eyedropper">
        <source>Click to take the color  ·  Esc leaves</source>
        <translation>Haga clic para tomar el color · Esc: salir</translation>
    </message>
    <message id="canvas.hint.pan">
        <source>Drag to move the view</source>
        <translation>Arrastre para mover la vista</translation>
    </message>
    <message id="color.red">
        <source>Red</source>
        <translation>Rojo</translation>
    </message>
    <message id="color.orange">
        <source>Orange</source>
        <translation>Naranja</translation>
    </message>
    <message id="color.yellow">
        <source>Yellow</source>
        <translation>Amarillo</translation>
    </message>
    <message id="color.green">
        <source>Green</source>
        <translation>Verde</translation>
    </message>
    <message id="color.blue">
        <source>Blue</source>
        <translation>Azul</translation>
    </message>
    <message id="color.violet">
        <source>Violet</source>
        <translation>Violeta</translation>
    </message>
    <message id="color.pink">
        <source>Pink</source>
        <translation>Rosa</translation>
    </message>
    <message id="color.slate">
        <source>Slate</source>
        <translation>Pizarra</translation>
    </message>
    <message id="editor.color">
        <source>Color</source>
        <translation>Color</translation>
    </message>
    <message id="editor.swatch.delete">
        <source>Delete Color</source>
        <translation>Eliminar color</translation>
    </message>
    <message id="editor.swatch.add">
        <source>Add a color of your own</source>
        <translation>Añadir un color propio</translation>
    </message>
    <message id="editor.swatch.tooltip">
        <source>Your color %1 (double click to edit)</source>
        <translation>Color propio %1 (doble clic para editarlo)</translation>
    </message>
    <message id="editor.swatch.edit">
        <source>Edit Color…</source>
        <translation>Editar color…</translation>
    </message>
    <message id="editor.failed.render">
        <source>The picture is too large to be made.</source>
        <translation>La imagen es demasiado grande para crearla.</translation>
    </message>
    <message id="editor.failed.encode">
        <source>The picture does not fit this format. PNG holds it.</source>
        <translation>La imagen no cabe en este formato. El formato PNG la admite.</translation>
    </message>
    <message id="editor.failed.write">
        <source>The file could not be written.</source>
        <translation>No se pudo escribir el archivo.</translation>
    </message>
    <message id="editor.progress.copy">
        <source>Copying…</source>
        <translation>Copiando…</translation>
    </message>
    <message id="editor.progress.save">
        <source>Saving…</source>
        <translation>Guardando…</translation>
    </message>
    <message id="editor.saveAs.title">
        <source>Save the picture as</source>
        <translation>Guardar la imagen como</translation>
    </message>
    <message id="editor.saved">
        <source>Saved %1</source>
        <translation>%1 guardado</translation>
    </message>
    <message id="editor.progress.print">
        <source>Printing…</source>
        <translation>Imprimiendo…</translation>
    </message>
    <message id="editor.bar">
        <source>Tools and style</source>
        <translation>Herramientas y estilo</translation>
    </message>
    <message id="editor.moreTools">
        <source>More tools</source>
        <translation>Más herramientas</translation>
    </message>
    <message id="editor.dragOut">
        <source>Drag the picture into another program</source>
        <translation>Arrastrar la imagen a otra aplicación</translation>
    </message>
    <message id="editor.copy.outdated">
        <source>%1: the clipboard holds an older state</source>
        <translation>%1: el portapapeles contiene un estado anterior</translation>
    </message>
    <message id="tool.select">
        <source>Select</source>
        <translation>Seleccionar</translation>
    </message>
    <message id="tool.arrow">
        <source>Arrow</source>
        <translation>Flecha</translation>
    </message>
    <message id="tool.rectangle">
        <source>Rectangle</source>
        <translation>Rectángulo</translation>
    </message>
    <message id="tool.ellipse">
        <source>Ellipse</source>
        <translation>Elipse</translation>
    </message>
    <message id="tool.line">
        <source>Line</source>
        <translation>Línea</translation>
    </message>
    <message id="tool.pen">
        <source>Pen</source>
        <translation>Lápiz</translation>
    </message>
    <message id="tool.text">
        <source>Text</source>
        <translation>Texto</translation>
    </message>
    <message id="tool.counter">
        <source>Counter</source>
        <translation>Numeración</translation>
    </message>
    <message id="tool.pixelate">
        <source>Pixelate</source>
        <translation>Pixelar</translation>
    </message>
    <message id="tool.magnifier">
        <source>Magnifier</source>
        <translation>Lupa</translation>
    </message>
    <message id="editor.crop">
        <source>Crop</source>
        <translation>Recortar</translation>
    </message>
    <message id="editor.thinner">
        <source>Thinner</source>
        <translation>Más fino</translation>
    </message>
    <message id="editor.thicker">
        <source>Thicker</source>
        <translation>Más grueso</translation>
    </message>
    <message id="editor.sketch">
        <source>Hand-Drawn</source>
        <translation>Trazo a mano</translation>
    </message>
    <message id="editor.fill">
        <source>Fill</source>
        <translation>Relleno</translation>
    </message>
    <message id="editor.nextBlurStyle">
        <source>Next Way to Pixelate</source>
        <translation>Siguiente modo de pixelado</translation>
    </message>
    <message id="editor.pickColor">
        <source>Pick Color from Screen</source>
        <translation>Tomar color de la pantalla</translation>
    </message>
    <message id="editor.undo">
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message id="editor.redo">
        <source>Redo</source>
        <translation>Rehacer</translation>
    </message>
    <message id="editor.cut">
        <source>Cut</source>
        <translation>Cortar</translation>
    </message>
    <message id="editor.copy">
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message id="editor.paste">
        <source>Paste</source>
        <translation>Pegar</translation>
    </message>
    <message id="editor.duplicate">
        <source>Duplicate</source>
        <translation>Duplicar</translation>
    </message>
    <message id="editor.delete">
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message id="editor.selectAll">
        <source>Select All</source>
        <translation>Seleccionar todo</translation>
    </message>
    <message id="editor.bringForward">
        <source>Bring Forward</source>
        <translation>Traer hacia delante</translation>
    </message>
    <message id="editor.sendBackward">
        <source>Send Backward</source>
        <translation>Enviar hacia atrás</translation>
    </message>
    <message id="editor.bringToFront">
        <source>Bring to Front</source>
        <translation>Traer al frente</translation>
    </message>
    <message id="editor.sendToBack">
        <source>Send to Back</source>
        <translation>Enviar al fondo</translation>
    </message>
    <message id="editor.alignLeft">
        <source>Align Left Edges</source>
        <translation>Alinear bordes izquierdos</translation>
    </message>
    <message id="editor.alignCenter">
        <source>Align Centers Horizontally</source>
        <translation>Alinear centros horizontalmente</translation>
    </message>
    <message id="editor.alignRight">
        <source>Align Right Edges</source>
        <translation>Alinear bordes derechos</translation>
    </message>
    <message id="editor.alignTop">
        <source>Align Top Edges</source>
        <translation>Alinear bordes superiores</translation>
    </message>
    <message id="editor.alignMiddle">
        <source>Align Centers Vertically</source>
        <translation>Alinear centros verticalmente</translation>
    </message>
    <message id="editor.alignBottom">
        <source>Align Bottom Edges</source>
        <translation>Alinear bordes inferiores</translation>
    </message>
    <message id="editor.resetCrop">
        <source>Reset Crop</source>
        <translation>Restablecer recorte</translation>
    </message>
    <message id="editor.addCapture">
        <source>Add Capture</source>
        <translation>Añadir captura</translation>
    </message>
    <message id="editor.addPicture">
        <source>Add Picture…</source>
        <translation>Añadir imagen…</translation>
    </message>
    <message id="editor.backdrop">
        <source>Backdrop</source>
        <translation>Fondo</translation>
    </message>
    <message id="editor.copyPicture">
        <source>Copy Picture</source>
        <translation>Copiar imagen</translation>
    </message>
    <message id="editor.save">
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message id="editor.saveAs">
        <source>Save As…</source>
        <translation>Guardar como…</translation>
    </message>
    <message id="editor.print">
        <source>Print…</source>
        <translation>Imprimir…</translation>
    </message>
    <message id="editor.pin">
        <source>Pin to Screen</source>
        <translation>Fijar en la pantalla</translation>
    </message>
    <message id="editor.close">
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message id="editor.zoomIn">
        <source>Zoom In</source>
        <translation>Acercar</translation>
    </message>
    <message id="editor.zoomOut">
        <source>Zoom Out</source>
        <translation>Alejar</translation>
    </message>
    <message id="editor.zoomToFit">
        <source>Fit to Window</source>
        <translation>Ajustar a la ventana</translation>
    </message>
    <message id="editor.actualSize">
        <source>Actual Size</source>
        <translation>Tamaño real</translation>
    </message>
    <message id="editor.nextPart">
        <source>Next Part of the Window</source>
        <translation>Siguiente parte de la ventana</translation>
    </message>
    <message id="editor.more">
        <source>More</source>
        <translation>Más</translation>
    </message>
    <message id="editor.shortcuts">
        <source>Keyboard Shortcuts</source>
        <translation>Atajos de teclado</translation>
    </message>
    <message id="editor.group.tools">
        <source>Tools</source>
        <translation>Herramientas</translation>
    </message>
    <message id="editor.group.style">
        <source>Style</source>
        <translation>Estilo</translation>
    </message>
    <message id="editor.group.edit">
        <source>Edit</source>
        <translation>Edición</translation>
    </message>
    <message id="editor.group.arrange">
        <source>Arrange</source>
        <translation>Organizar</translation>
    </message>
    <message id="editor.group.picture">
        <source>Picture</source>
        <translation>Imagen</translation>
    </message>
    <message id="editor.group.view">
        <source>View</source>
        <translation>Vista</translation>
    </message>
    <message id="editor.menu.order">
        <source>Order</source>
        <translation>Orden</translation>
    </message>
    <message id="editor.menu.align">
        <source>Align</source>
        <translation>Alinear</translation>
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
        <translation>%1 × %2 en %3, %4</translation>
    </message>
    <message id="editor.sketchTooltip">
        <source>Hand-drawn</source>
        <translation>Trazo a mano</translation>
    </message>
    <message id="editor.fillTooltip">
        <source>Filled</source>
        <translation>Con relleno</translation>
    </message>
    <message id="editor.textStyleTooltip">
        <source>Text on a filled box</source>
        <translation>Texto sobre fondo de color</translation>
    </message>
    <message id="editor.textFontTooltip">
        <source>Handwriting</source>
        <translation>Escritura a mano</translation>
    </message>
    <message id="editor.blurStyle.hides">
        <source>Hides what is below it for good.</source>
        <translation>Oculta definitivamente lo que hay debajo.</translation>
    </message>
    <message id="editor.blurStyle.mosaic">
        <source>Mosaic</source>
        <translation>Mosaico</translation>
    </message>
    <message id="editor.blurStyle.erase">
        <source>Paint Over</source>
        <translation>Cubrir</translation>
    </message>
    <message id="editor.blurStyle.gaussian">
        <source>Blur</source>
        <translation>Desenfocar</translation>
    </message>
    <message id="editor.blurStyle.gaussian.warning">
        <source>Decorates only: what is below can often be made readable again. Hide secrets with the other two.</source>
        <translation>Solo decorativo: lo que hay debajo a menudo se puede volver a leer. Oculte los datos confidenciales con los otros dos modos.</translation>
    </message>
    <message id="editor.blurStyleTooltip">
        <source>How it is hidden</source>
        <translation>Modo de pixelado</translation>
    </message>
    <message id="editor.blurFillColor">
        <source>Color it is painted over with</source>
        <translation>Color para cubrir</translation>
    </message>
    <message id="editor.blurFillColor.automatic">
        <source>Take the color from around it</source>
        <translation>Tomar el color del entorno</translation>
    </message>
    <message id="editor.blurStrength.gaussian">
        <source>Softness</source>
        <translation>Suavidad</translation>
    </message>
    <message id="editor.blurStrength.pixel">
        <source>Cell size</source>
        <translation>Tamaño de los bloques</translation>
    </message>
    <message id="editor.magnifierShape.circle">
        <source>Round</source>
        <translation>Redonda</translation>
    </message>
    <message id="editor.magnifierShape.roundedRect">
        <source>Rounded rectangle</source>
        <translation>Rectángulo redondeado</translation>
    </message>
    <message id="editor.magnifierShapeTooltip">
        <source>Shape of the lens</source>
        <translation>Forma de la lupa</translation>
    </message>
    <message id="editor.magnificationTooltip">
        <source>Magnification</source>
        <translation>Aumento</translation>
    </message>
    <message id="editor.format.png">
        <source>PNG picture (*.png)</source>
        <translation>Imagen PNG (*.png)</translation>
    </message>
    <message id="editor.format.jpeg">
        <source>JPEG picture (*.jpg *.jpeg)</source>
        <translation>Imagen JPEG (*.jpg *.jpeg)</translation>
    </message>
    <message id="editor.format.webp">
        <source>WebP picture (*.webp)</source>
        <translation>Imagen WebP (*.webp)</translation>
    </message>
    <message id="editor.format.tiff">
        <source>TIFF picture (*.tiff *.tif)</source>
        <translation>Imagen TIFF (*.tiff *.tif)</translation>
    </message>
    <message id="editor.format.pdf">
        <source>PDF document (*.pdf)</source>
        <translation>Documento PDF (*.pdf)</translation>
    </message>
    <message id="pin.zoom">
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message id="pin.zoom.hint">
        <source>0 for the picture&apos;s own size</source>
        <translation>0 para el tamaño real</translation>
    </message>
    <message id="pin.copy">
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message id="pin.copy.hint">
        <source>Ctrl+C; drag it into another program</source>
        <translation>Ctrl+C; se puede arrastrar a otra aplicación</translation>
    </message>
    <message id="pin.edit">
        <source>Edit</source>
        <translation>Editar</translation>
    </message>
    <message id="pin.more">
        <source>More</source>
        <translation>Más</translation>
    </message>
    <message id="pin.close">
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message id="pin.percent">
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message id="pin.save">
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message id="pin.opacity">
        <source>Opacity</source>
        <translation>Opacidad</translation>
    </message>
    <message id="pin.shadow">
        <source>Shadow</source>
        <translation>Sombra</translation>
    </message>
    <message id="pin.roundedCorners">
        <source>Rounded Corners</source>
        <translation>Esquinas redondeadas</translation>
    </message>
    <message id="pin.clickThrough">
        <source>Let Clicks Through</source>
        <translation>Dejar pasar los clics</translation>
    </message>
    <message id="pin.closeAll">
        <source>Close All Pins</source>
        <translation>Cerrar todas las imágenes fijadas</translation>
    </message>
    <message id="pin.window">
        <source>Pinned picture</source>
        <translation>Imagen fijada</translation>
    </message>
    <message id="pin.opacity.badge">
        <source>Opacity %1</source>
        <translation>Opacidad %1</translation>
    </message>
    <message id="pin.clickThrough.began">
        <source>Clicks now go through the pin. The Vellora menu ends this.</source>
        <translation>Ahora los clics atraviesan la imagen fijada. Puede desactivarlo en el menú de Vellora.</translation>
    </message>
    <message id="editor.shortcuts.lock">
        <source>Keep the Tool</source>
        <translation>Mantener la herramienta</translation>
    </message>
    <message id="editor.shortcuts.doubleClick">
        <source>double click</source>
        <translation>doble clic</translation>
    </message>
    <message id="editor.shortcuts.colors">
        <source>Colors</source>
        <translation>Colores</translation>
    </message>
    <message id="editor.shortcuts.pan">
        <source>Move the Picture</source>
        <translation>Mover la imagen</translation>
    </message>
    <message id="editor.shortcuts.space">
        <source>Space</source>
        <translation>Espacio</translation>
    </message>
    <message id="editor.shortcuts.drag">
        <source>drag</source>
        <translation>arrastrar</translation>
    </message>
    <message id="editor.cancel">
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message id="editor.zoom">
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message id="editor.moreStyle">
        <source>More of the style</source>
        <translation>Más opciones de estilo</translation>
    </message>
    <message id="editor.width">
        <source>Width</source>
        <translation>Grosor</translation>
    </message>
    <message id="editor.width.preset">
        <source>Width %1</source>
        <translation>Grosor %1</translation>
    </message>
    <message id="color.plane">
        <source>Saturation and brightness</source>
        <translation>Saturación y brillo</translation>
    </message>
    <message id="color.hue">
        <source>Hue</source>
        <translation>Tono</translation>
    </message>
    <message id="color.opacity">
        <source>Opacity</source>
        <translation>Opacidad</translation>
    </message>
    <message id="color.hex">
        <source>Color as a hexadecimal number</source>
        <translation>Color en hexadecimal</translation>
    </message>
    <message id="color.eyedropper">
        <source>Pick a color from the screen</source>
        <translation>Tomar un color de la pantalla</translation>
    </message>
    <message id="editor.copiedSelection">
        <source>Copied the selection</source>
        <translation>Selección copiada</translation>
    </message>
    <message id="editor.distributeHorizontally">
        <source>Distribute Horizontally</source>
        <translation>Distribuir horizontalmente</translation>
    </message>
    <message id="editor.distributeVertically">
        <source>Distribute Vertically</source>
        <translation>Distribuir verticalmente</translation>
    </message>
    <message id="compress.compare.value">
        <source>%1 % before</source>
        <translation>%1 % antes</translation>
    </message>
    <message id="compress.compare.selectOne">
        <source>Select an image to compare it with its result</source>
        <translation>Selecciona una imagen para compararla con su resultado</translation>
    </message>
    <message id="compress.compare.before">
        <source>Before</source>
        <translation>Antes</translation>
    </message>
    <message id="compress.compare.after">
        <source>After</source>
        <translation>Después</translation>
    </message>
    <message id="compress.compare.fit">
        <source>Show the whole picture</source>
        <translation>Mostrar la imagen entera</translation>
    </message>
    <message id="compress.compare.actual">
        <source>Show at 100 %</source>
        <translation>Mostrar al 100 %</translation>
    </message>
    <message id="compress.compare.zoom">
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message id="compress.compare.busy">
        <source>The result is being made</source>
        <translation>Se está creando el resultado</translation>
    </message>
    <message id="compress.compare.name">
        <source>Before and after</source>
        <translation>Antes y después</translation>
    </message>
    <message id="compress.compare.help">
        <source>The arrow keys move the divider. B shows only the picture before.</source>
        <translation>Las teclas de flecha mueven el divisor. B muestra solo la imagen de antes.</translation>
    </message>
    <message id="compress.drop.hint">
        <source>Drop images or folders here</source>
        <translation>Suelta aquí imágenes o carpetas</translation>
    </message>
    <message id="compress.drop.more">
        <source>or paste them with %1. Originals are never changed, and results are never larger.</source>
        <translation>o pégalas con %1. Los originales nunca se modifican y los resultados nunca son mayores.</translation>
    </message>
    <message id="compress.drop.choose">
        <source>Choose Images…</source>
        <translation>Elegir imágenes…</translation>
    </message>
    <message id="compress.cancel">
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message id="compress.cancelTip">
        <source>Stop compressing (Esc)</source>
        <translation>Detener la compresión (Esc)</translation>
    </message>
    <message id="compress.actionOne">
        <source>Compress 1 Image</source>
        <translation>Comprimir 1 imagen</translation>
    </message>
    <message id="compress.actionMany">
        <source>Compress %1 Images</source>
        <translation>Comprimir %1 imágenes</translation>
    </message>
    <message id="compress.actionNone">
        <source>Compress</source>
        <translation>Comprimir</translation>
    </message>
    <message id="compress.progress.count">
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message id="compress.toast.failed" numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n con error</numerusform>
            <numerusform>%n con error</numerusform>
        </translation>
    </message>
    <message id="compress.row.keptTip">
        <source>Nothing smaller was found in this format and size</source>
        <translation>No se encontró nada menor en este formato y tamaño</translation>
    </message>
    <message id="compress.row.resultTip">
        <source>Result: %1</source>
        <translation>Resultado: %1</translation>
    </message>
    <message id="compress.row.flattenedTip">
        <source>This format cannot be transparent: the background became white</source>
        <translation>Este formato no admite transparencia: el fondo pasó a ser blanco</translation>
    </message>
    <message id="compress.command.retry">
        <source>Try Again</source>
        <translation>Volver a intentar</translation>
    </message>
    <message id="compress.command.reveal">
        <source>Show Result in Folder</source>
        <translation>Mostrar el resultado en la carpeta</translation>
    </message>
    <message id="compress.command.remove">
        <source>Remove from List</source>
        <translation>Quitar de la lista</translation>
    </message>
    <message id="compress.list">
        <source>Images</source>
        <translation>Imágenes</translation>
    </message>
    <message id="compress.settingsTitle">
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message id="compress.label.format">
        <source>Format</source>
        <translation>Formato</translation>
    </message>
    <message id="compress.format.original">
        <source>Original</source>
        <translation>Original</translation>
    </message>
    <message id="compress.format.originalTip">
        <source>Every image keeps its format</source>
        <translation>Cada imagen conserva su formato</translation>
    </message>
    <message id="compress.format.jpegTip">
        <source>For photos; no transparency</source>
        <translation>Para fotos; sin transparencia</translation>
    </message>
    <message id="compress.format.pngTip">
        <source>Exact to the pixel; for screenshots and drawings</source>
        <translation>Exacto al píxel; para capturas y dibujos</translation>
    </message>
    <message id="compress.format.webpTip">
        <source>Smallest, for the web; keeps transparency</source>
        <translation>El más pequeño, para la web; conserva la transparencia</translation>
    </message>
    <message id="compress.label.quality">
        <source>Quality</source>
        <translation>Calidad</translation>
    </message>
    <message id="compress.quality.percent">
        <source>%1%</source>
        <translation>%1 %</translation>
    </message>
    <message id="compress.quality.unused">
        <source>Nothing is lost in these formats, so quality changes nothing.</source>
        <translation>En estos formatos no se pierde nada, así que la calidad no cambia nada.</translation>
    </message>
    <message id="compress.label.resize">
        <source>Resize</source>
        <translation>Cambiar tamaño</translation>
    </message>
    <message id="compress.resize.fixed">
        <source>%1 – at most %2 px</source>
        <translation>%1 – como máximo %2 px</translation>
    </message>
    <message id="compress.resize.off">
        <source>Off</source>
        <translation>No</translation>
    </message>
    <message id="compress.resize.custom">
        <source>Custom</source>
        <translation>Personalizado</translation>
    </message>
    <message id="compress.resize.customTip">
        <source>Longest edge in pixels. Smaller images stay as they are.</source>
        <translation>Lado más largo en píxeles. Las imágenes menores se quedan como están.</translation>
    </message>
    <message id="compress.resize.pixels">
        <source>pixels</source>
        <translation>píxeles</translation>
    </message>
    <message id="compress.label.output">
        <source>Save results</source>
        <translation>Guardar resultados</translation>
    </message>
    <message id="compress.output.source">
        <source>Beside the originals</source>
        <translation>Junto a los originales</translation>
    </message>
    <message id="compress.output.custom">
        <source>In another folder</source>
        <translation>En otra carpeta</translation>
    </message>
    <message id="compress.output.choose">
        <source>Choose…</source>
        <translation>Elegir…</translation>
    </message>
    <message id="compress.output.chooseTitle">
        <source>Choose a folder for the results</source>
        <translation>Elige una carpeta para los resultados</translation>
    </message>
    <message id="compress.keepMetadata">
        <source>Keep metadata</source>
        <translation>Conservar metadatos</translation>
    </message>
    <message id="compress.keepMetadataHelp">
        <source>Camera, place, author. Off: nobody learns where a photo was taken.</source>
        <translation>Cámara, lugar, autor. Desactivado: nadie sabe dónde se tomó una foto.</translation>
    </message>
    <message id="compress.keepDates">
        <source>Keep dates</source>
        <translation>Conservar fechas</translation>
    </message>
    <message id="compress.keepDatesHelp">
        <source>Results get the file dates of their originals.</source>
        <translation>Los resultados reciben las fechas de sus originales.</translation>
    </message>
    <message id="compress.row.kept">
        <source>Kept as it was</source>
        <translation>Se quedó como estaba</translation>
    </message>
    <message id="compress.row.metadataRemoved">
        <source>Only metadata removed</source>
        <translation>Solo se quitaron metadatos</translation>
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
        <translation>%1 % menos</translation>
    </message>
    <message id="compress.row.larger">
        <source>%1% larger</source>
        <translation>%1 % más</translation>
    </message>
    <message id="compress.row.pixels">
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message id="compress.progress.secondsLeft" numerus="yes">
        <source>%n second(s) left</source>
        <translation>
            <numerusform>queda %n segundo</numerusform>
            <numerusform>quedan %n segundos</numerusform>
        </translation>
    </message>
    <message id="compress.progress.minutesLeft" numerus="yes">
        <source>%n minute(s) left</source>
        <translation>
            <numerusform>queda %n minuto</numerusform>
            <numerusform>quedan %n minutos</numerusform>
        </translation>
    </message>
    <message id="compress.failure.notFound">
        <source>The file is no longer there</source>
        <translation>El archivo ya no está</translation>
    </message>
    <message id="compress.failure.notPermitted">
        <source>You are not allowed to read or write here</source>
        <translation>No tienes permiso para leer o escribir aquí</translation>
    </message>
    <message id="compress.failure.notAFile">
        <source>This is not a file</source>
        <translation>Esto no es un archivo</translation>
    </message>
    <message id="compress.failure.notAPicture">
        <source>This is not an image</source>
        <translation>Esto no es una imagen</translation>
    </message>
    <message id="compress.failure.tooLarge">
        <source>The image is too large</source>
        <translation>La imagen es demasiado grande</translation>
    </message>
    <message id="compress.failure.unsupported">
        <source>This kind of image is not supported</source>
        <translation>Este tipo de imagen no se admite</translation>
    </message>
    <message id="compress.failure.animated">
        <source>Animations and pages can only keep their format and size</source>
        <translation>Las animaciones y páginas solo pueden conservar su formato y tamaño</translation>
    </message>
    <message id="compress.failure.damaged">
        <source>The file is damaged</source>
        <translation>El archivo está dañado</translation>
    </message>
    <message id="compress.failure.outOfMemory">
        <source>There is not enough memory</source>
        <translation>No hay memoria suficiente</translation>
    </message>
    <message id="compress.failure.cannotEncode">
        <source>The image does not fit this format</source>
        <translation>La imagen no cabe en este formato</translation>
    </message>
    <message id="compress.failure.diskFull">
        <source>The disk is full</source>
        <translation>El disco está lleno</translation>
    </message>
    <message id="compress.failure.writeFailed">
        <source>The result could not be written</source>
        <translation>No se pudo escribir el resultado</translation>
    </message>
    <message id="compress.row.cancelled">
        <source>Stopped</source>
        <translation>Detenida</translation>
    </message>
    <message id="compress.row.sizes">
        <source>%1 → %2</source>
        <translation>%1 → %2</translation>
    </message>
    <message id="compress.row.running">
        <source>Compressing…</source>
        <translation>Comprimiendo…</translation>
    </message>
    <message id="compress.row.same">
        <source>Same size</source>
        <translation>Mismo tamaño</translation>
    </message>
    <message id="compress.row.failed">
        <source>Failed</source>
        <translation>Error</translation>
    </message>
    <message id="compress.badge.fullSize">
        <source>Full size</source>
        <translation>Tamaño completo</translation>
    </message>
    <message id="compress.badge.maxEdge">
        <source>At most %1 px</source>
        <translation>Máximo %1 px</translation>
    </message>
    <message id="compress.badge.sourceFolder">
        <source>Source folder</source>
        <translation>Carpeta de origen</translation>
    </message>
    <message id="compress.title">
        <source>Compress Images</source>
        <translation>Comprimir imágenes</translation>
    </message>
    <message id="compress.command.addImages">
        <source>Add Images…</source>
        <translation>Añadir imágenes…</translation>
    </message>
    <message id="compress.command.addFolder">
        <source>Add Folder…</source>
        <translation>Añadir carpeta…</translation>
    </message>
    <message id="compress.command.paste">
        <source>Paste</source>
        <translation>Pegar</translation>
    </message>
    <message id="compress.command.compare">
        <source>Compare Before and After</source>
        <translation>Comparar antes y después</translation>
    </message>
    <message id="compress.command.clear">
        <source>Remove All</source>
        <translation>Quitar todas</translation>
    </message>
    <message id="compress.command.settings">
        <source>Show or Hide Settings</source>
        <translation>Mostrar u ocultar ajustes</translation>
    </message>
    <message id="compress.add">
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
    <message id="compress.addTip">
        <source>Add images, folders, or captures</source>
        <translation>Añadir imágenes, carpetas o capturas</translation>
    </message>
    <message id="compress.key.space">
        <source>Space</source>
        <translation>Espacio</translation>
    </message>
    <message id="compress.toast.nothingToPaste">
        <source>There is no image on the clipboard</source>
        <translation>No hay ninguna imagen en el portapapeles</translation>
    </message>
    <message id="compress.pastedName">
        <source>Pasted Image %1</source>
        <translation>Imagen pegada %1</translation>
    </message>
    <message id="compress.toast.nothingFound">
        <source>No new images were found there</source>
        <translation>No se encontraron imágenes nuevas ahí</translation>
    </message>
    <message id="compress.looking">
        <source>Looking for images…</source>
        <translation>Buscando imágenes…</translation>
    </message>
    <message id="compress.summary.count" numerus="yes">
        <source>%n image(s)</source>
        <translation>
            <numerusform>%n imagen</numerusform>
            <numerusform>%n imágenes</numerusform>
        </translation>
    </message>
    <message id="compress.addImages.title">
        <source>Add images</source>
        <translation>Añadir imágenes</translation>
    </message>
    <message id="compress.addImages.filter">
        <source>Images (%1)</source>
        <translation>Imágenes (%1)</translation>
    </message>
    <message id="compress.addImages.allFiles">
        <source>All files (*)</source>
        <translation>Todos los archivos (*)</translation>
    </message>
    <message id="compress.addFolder.title">
        <source>Add a folder of images</source>
        <translation>Añadir una carpeta de imágenes</translation>
    </message>
    <message id="compress.command.captures">
        <source>Recent Captures</source>
        <translation>Capturas recientes</translation>
    </message>
    <message id="compress.toast.done" numerus="yes">
        <source>%n image(s) compressed</source>
        <translation>
            <numerusform>%n imagen comprimida</numerusform>
            <numerusform>%n imágenes comprimidas</numerusform>
        </translation>
    </message>
    <message id="compress.toast.savedPercent">
        <source>%1 saved (%2%)</source>
        <translation>%1 ahorrados (%2 %)</translation>
    </message>
    <message id="compress.toast.stopped" numerus="yes">
        <source>%n stopped</source>
        <translation>
            <numerusform>%n detenida</numerusform>
            <numerusform>%n detenidas</numerusform>
        </translation>
    </message>
    <message id="editor.compress">
        <source>Compress…</source>
        <translation>Comprimir…</translation>
    </message>
    <message id="recording.bar.level">
        <source>Level of the microphone</source>
        <translation>Nivel del micrófono</translation>
    </message>
    <message id="recording.bar.device">
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message id="recording.bar.start">
        <source>Start</source>
        <translation>Iniciar</translation>
    </message>
    <message id="recording.bar.startTip">
        <source>Start recording (Return)</source>
        <translation>Iniciar la grabación (Intro)</translation>
    </message>
    <message id="recording.camera.close">
        <source>Turn the camera off</source>
        <translation>Apagar la cámara</translation>
    </message>
    <message id="recording.camera">
        <source>Camera</source>
        <translation>Cámara</translation>
    </message>
    <message id="recording.camera.help">
        <source>Drag to move, turn the wheel to resize</source>
        <translation>Arrastra para mover, gira la rueda para cambiar el tamaño</translation>
    </message>
    <message id="recording.bar.resume">
        <source>Resume</source>
        <translation>Reanudar</translation>
    </message>
    <message id="recording.bar.pause">
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message id="recording.bar.sound.on">
        <source>Sound of the computer: on</source>
        <translation>Sonido del equipo: sí</translation>
    </message>
    <message id="recording.bar.sound.off">
        <source>Sound of the computer: off</source>
        <translation>Sonido del equipo: no</translation>
    </message>
    <message id="recording.bar.keys.on">
        <source>Keystrokes are recorded</source>
        <translation>Se graban las pulsaciones</translation>
    </message>
    <message id="recording.bar.keys.off">
        <source>Keystrokes are not recorded</source>
        <translation>No se graban las pulsaciones</translation>
    </message>
    <message id="recording.bar.startingIn">
        <source>Starting in %1</source>
        <translation>Empieza en %1</translation>
    </message>
    <message id="recording.bar.starting">
        <source>Starting…</source>
        <translation>Iniciando…</translation>
    </message>
    <message id="recording.bar">
        <source>Recording</source>
        <translation>Grabación</translation>
    </message>
    <message id="recording.bar.mic">
        <source>Microphone</source>
        <translation>Micrófono</translation>
    </message>
    <message id="recording.bar.mic.none">
        <source>No microphone</source>
        <translation>Sin micrófono</translation>
    </message>
    <message id="recording.bar.camera">
        <source>Camera</source>
        <translation>Cámara</translation>
    </message>
    <message id="recording.bar.camera.none">
        <source>No camera</source>
        <translation>Sin cámara</translation>
    </message>
    <message id="recording.bar.cancel">
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message id="recording.bar.elapsed">
        <source>Recorded time</source>
        <translation>Tiempo grabado</translation>
    </message>
    <message id="recording.bar.stop">
        <source>Stop and keep the recording</source>
        <translation>Detener y conservar la grabación</translation>
    </message>
    <message id="recording.bar.close">
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message id="recording.bar.keys.hidden">
        <source>A password is being typed: keystrokes are not recorded</source>
        <translation>Se está escribiendo una contraseña: no se graban las pulsaciones</translation>
    </message>
    <message id="recording.countdown" numerus="yes">
        <source>Recording starts in %n second(s)</source>
        <translation>
            <numerusform>La grabación empieza en %n segundo</numerusform>
            <numerusform>La grabación empieza en %n segundos</numerusform>
        </translation>
    </message>
    <message id="alert.ok">
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message id="recording.error.writerSetupFailed">
        <source>Failed to set up the video writer.</source>
        <translation>No se pudo preparar la escritura del vídeo.</translation>
    </message>
    <message id="recording.error.writeFailed">
        <source>Failed to write the recording.</source>
        <translation>No se pudo escribir la grabación.</translation>
    </message>
    <message id="recording.error.displayNotFound">
        <source>Could not find the display to record.</source>
        <translation>No se encontró la pantalla que grabar.</translation>
    </message>
    <message id="recording.error.windowNotFound">
        <source>Could not find the window to record.</source>
        <translation>No se encontró la ventana que grabar.</translation>
    </message>
    <message id="recording.error.micNotFound">
        <source>Could not find the selected microphone.</source>
        <translation>No se encontró el micrófono elegido.</translation>
    </message>
    <message id="recording.error.cameraNotFound">
        <source>Could not find the selected camera.</source>
        <translation>No se encontró la cámara elegida.</translation>
    </message>
    <message id="toast.recordingFailed">
        <source>The recording could not be kept</source>
        <translation>No se pudo conservar la grabación</translation>
    </message>
    <message id="record.keyboard.saveFailed">
        <source>The recording is complete, but its keystrokes could not be saved</source>
        <translation>La grabación está completa, pero no se pudieron guardar sus pulsaciones</translation>
    </message>
    <message id="recording.mic.unavailable">
        <source>The microphone cannot be used: recording without it</source>
        <translation>No se puede usar el micrófono: se graba sin él</translation>
    </message>
    <message id="recording.mic.lost">
        <source>The microphone is gone: the recording goes on without sound from it</source>
        <translation>El micrófono se desconectó: la grabación sigue sin su sonido</translation>
    </message>
    <message id="recording.camera.lost">
        <source>The camera is gone: the recording goes on without it</source>
        <translation>La cámara se desconectó: la grabación sigue sin ella</translation>
    </message>
    <message id="recording.disk.low">
        <source>The disk has room for about five more minutes of recording</source>
        <translation>Queda espacio en disco para unos cinco minutos de grabación</translation>
    </message>
    <message id="recording.disk.full">
        <source>The recording was stopped because the disk is nearly full. Everything so far is kept.</source>
        <translation>La grabación se detuvo porque el disco está casi lleno. Se conserva todo lo anterior.</translation>
    </message>
    <message id="recording.stopped">
        <source>What was being recorded is gone. The recording up to then is kept.</source>
        <translation>Lo que se grababa ya no está. Se conserva la grabación hasta ese momento.</translation>
    </message>
    <message id="record.keyboard.permission.title">
        <source>Keystrokes cannot be recorded</source>
        <translation>No se pueden grabar las pulsaciones</translation>
    </message>
    <message id="record.keyboard.permission.body">
        <source>This desktop does not let programs see which keys are pressed. The rest is recorded as usual.</source>
        <translation>Este escritorio no deja que los programas vean qué teclas se pulsan. El resto se graba como siempre.</translation>
    </message>
    <message id="alert.importVideo.unreadable.title">
        <source>This file cannot be read as a video</source>
        <translation>Este archivo no se puede leer como vídeo</translation>
    </message>
    <message id="recording.startFailed">
        <source>The recording could not be started</source>
        <translation>No se pudo iniciar la grabación</translation>
    </message>
    <message id="recording.region.fullDisplay">
        <source>Full display</source>
        <translation>Pantalla completa</translation>
    </message>
    <message id="recording.region.square">
        <source>Square</source>
        <translation>Cuadrado</translation>
    </message>
    <message id="recording.region.presets">
        <source>Sizes and shapes</source>
        <translation>Tamaños y formas</translation>
    </message>
    <message id="recording.region.badge">
        <source>Size of the recording; drag to move it</source>
        <translation>Tamaño de la grabación; arrastra para mover</translation>
    </message>
    <message id="recording.region.sizes">
        <source>%1 px · %2 pt</source>
        <translation>%1 px · %2 pt</translation>
    </message>
    <message id="toast.recordingsRecovered" numerus="yes">
        <source>%n interrupted recording(s) saved: look under Recent Recordings</source>
        <translation>
            <numerusform>Se guardó %n grabación interrumpida: está en las grabaciones recientes</numerusform>
            <numerusform>Se guardaron %n grabaciones interrumpidas: están en las grabaciones recientes</numerusform>
        </translation>
    </message>
    <message id="toast.recordingNotOpened">
        <source>This recording cannot be opened: it has no movie</source>
        <translation>No se puede abrir esta grabación: no contiene ningún vídeo</translation>
    </message>
    <message id="record.source.region">
        <source>Region</source>
        <translation>Área</translation>
    </message>
    <message id="record.source.window">
        <source>Window</source>
        <translation>Ventana</translation>
    </message>
    <message id="record.source.fullscreen">
        <source>Full screen</source>
        <translation>Pantalla completa</translation>
    </message>
    <message id="import.video.title">
        <source>Import a video</source>
        <translation>Importar un vídeo</translation>
    </message>
    <message id="import.video.filter">
        <source>Videos (%1)</source>
        <translation>Vídeos (%1)</translation>
    </message>
    <message id="import.video.all">
        <source>All files (*)</source>
        <translation>Todos los archivos (*)</translation>
    </message>
    <message id="toast.importingVideo">
        <source>Importing the video…</source>
        <translation>Importando el vídeo…</translation>
    </message>
    <message id="toast.importNotCopied">
        <source>The video could not be copied into the recordings folder</source>
        <translation>No se pudo copiar el vídeo a la carpeta de grabaciones</translation>
    </message>
    <message id="player.picture">
        <source>Picture</source>
        <translation>Imagen</translation>
    </message>
    <message id="player.play">
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
    <message id="player.sound">
        <source>Sound</source>
        <translation>Sonido</translation>
    </message>
    <message id="player.reveal">
        <source>Show in Folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message id="player.notPlayable">
        <source>The movie of this recording cannot be played. Its folder may still hold what was recorded.</source>
        <translation>El vídeo de esta grabación no se puede reproducir. Es posible que su carpeta aún contenga lo grabado.</translation>
    </message>
    <message id="player.pause">
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message id="player.position">
        <source>Position</source>
        <translation>Posición</translation>
    </message>
    <message id="recording.systemSound.unavailable">
        <source>This computer&apos;s sound cannot be recorded: the recording goes on without it</source>
        <translation>No se puede grabar el sonido de este equipo: la grabación continúa sin él</translation>
    </message>
    <message id="recording.camera.unavailable">
        <source>The camera cannot be used: recording without it</source>
        <translation>No se puede usar la cámara: se graba sin ella</translation>
    </message>
    <message id="recording.mic.returned">
        <source>The microphone is back and recorded again</source>
        <translation>El micrófono ha vuelto y se graba de nuevo</translation>
    </message>
    <message id="recording.systemSound.returned">
        <source>This computer&apos;s sound is recorded again</source>
        <translation>El sonido de este ordenador se graba de nuevo</translation>
    </message>
</context>
</TS>
