<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>Cuelist</name>
    <message>
        <source>Step</source>
        <translation>Paso</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>Contenido</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Subida</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Bajada</translation>
    </message>
    <message>
        <source>Wait</source>
        <translation>Espera</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Mover</translation>
    </message>
    <message>
        <source>Affects</source>
        <translation>Afecta</translation>
    </message>
    <message>
        <source>NEXT</source>
        <translation>NEXT</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Bucle</translation>
    </message>
    <message>
        <source>One Shot</source>
        <translation>Una vez</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manual</translation>
    </message>
    <message>
        <source>LIVE</source>
        <translation>LIVE</translation>
    </message>
    <message>
        <source>dark</source>
        <translation>oscuro</translation>
    </message>
</context>
<context>
    <name>Cuematrix</name>
    <message>
        <source>[empty]</source>
        <translation>[vacío]</translation>
    </message>
    <message>
        <source>Insert step</source>
        <translation>Insertar paso</translation>
    </message>
    <message>
        <source>No space to insert a cue here</source>
        <translation>No hay espacio para insertar una cue aquí</translation>
    </message>
    <message>
        <source>Delete step</source>
        <translation>Eliminar paso</translation>
    </message>
    <message>
        <source>Are you sure?</source>
        <translation>¿Está seguro?</translation>
    </message>
    <message>
        <source>Move step</source>
        <translation>Mover paso</translation>
    </message>
    <message>
        <source>No space to move a cue here</source>
        <translation>No hay espacio para mover una cue aquí</translation>
    </message>
</context>
<context>
    <name>GMButtonRow</name>
    <message>
        <source>IND 1</source>
        <translation>IND 1</translation>
    </message>
    <message>
        <source>IND 2</source>
        <translation>IND 2</translation>
    </message>
    <message>
        <source>BLACK OUT</source>
        <translation>BLACK OUT</translation>
    </message>
    <message>
        <source>SOLO</source>
        <translation>SOLO</translation>
    </message>
    <message>
        <source>MEMS</source>
        <translation>MEMS</translation>
    </message>
    <message>
        <source>25-48</source>
        <translation>25-48</translation>
    </message>
    <message>
        <source>1-24</source>
        <translation>1-24</translation>
    </message>
    <message>
        <source>49-96</source>
        <translation>49-96</translation>
    </message>
    <message>
        <source>1-48</source>
        <translation>1-48</translation>
    </message>
    <message>
        <source>GM</source>
        <translation>GM</translation>
    </message>
    <message>
        <source>BUMPS</source>
        <translation>FLASHES</translation>
    </message>
    <message>
        <source>PAGE</source>
        <translation>PÁGINA</translation>
    </message>
</context>
<context>
    <name>InsertSequenceStepDialogClass</name>
    <message>
        <source>Insert sequence step</source>
        <translation>Insertar paso de secuencia</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Canal</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>Memoria</translation>
    </message>
    <message>
        <source>Direct cue</source>
        <translation>Cue directa</translation>
    </message>
    <message>
        <source>Cue number</source>
        <translation>Número de cue</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Insertar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>InterfaceDialogClass</name>
    <message>
        <source>Lumidesk</source>
        <translation>Lumidesk</translation>
    </message>
    <message>
        <source>Select console type:</source>
        <translation>Seleccione el tipo de consola:</translation>
    </message>
    <message>
        <source>&lt;p&gt;The latest console and Lumidesk software is available at &lt;a href="https://www.glowcraft-lighting.com/software"&gt;www.glowcraft-lighting.com/software&lt;/a&gt;.&lt;/p&gt;&lt;p style="color:#808080"&gt;Glowcraft, Alder, Birch, Cedar and Maple are trademarks of Glowcraft Lighting.&lt;/p&gt;</source>
        <translation>&lt;p&gt;El software más reciente de la consola y de Lumidesk está disponible en &lt;a href="https://www.glowcraft-lighting.com/software"&gt;www.glowcraft-lighting.com/software&lt;/a&gt;.&lt;/p&gt;&lt;p style="color:#808080"&gt;Glowcraft, Alder, Birch, Cedar y Maple son marcas comerciales de Glowcraft Lighting.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Run Lumidesk with a %1 console</source>
        <translation>Usar Lumidesk con una consola %1</translation>
    </message>
</context>
<context>
    <name>LegendsView</name>
    <message>
        <source>INT A</source>
        <translation>INT A</translation>
    </message>
    <message>
        <source>INT B</source>
        <translation>INT B</translation>
    </message>
    <message>
        <source>INT DEV</source>
        <translation>INT DEV</translation>
    </message>
    <message>
        <source>Ch %1-%2</source>
        <translation>Ch %1-%2</translation>
    </message>
    <message>
        <source>IND %1</source>
        <translation>IND %1</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>Reproducción</translation>
    </message>
</context>
<context>
    <name>Lumidesk</name>
    <message>
        <source>Connection error</source>
        <translation>Error de conexión</translation>
    </message>
    <message>
        <source>The console software version does not match the Lumidesk software version.
Please update one or both sides to a matching version.</source>
        <translation>La versión del software de la consola no coincide con la versión del software de Lumidesk.
Actualice uno o ambos lados a versiones que coincidan.</translation>
    </message>
    <message>
        <source>Critical error</source>
        <translation>Error crítico</translation>
    </message>
    <message>
        <source>Lumidesk failed to load the console selected!</source>
        <translation>¡Lumidesk no ha podido cargar la consola seleccionada!</translation>
    </message>
</context>
<context>
    <name>MLButtonRow</name>
    <message>
        <source>FOCUS</source>
        <translation>FOCO</translation>
    </message>
    <message>
        <source>COLOR</source>
        <translation>COLOR</translation>
    </message>
    <message>
        <source>BEAM</source>
        <translation>HAZ</translation>
    </message>
    <message>
        <source>GROUP</source>
        <translation>GRUPO</translation>
    </message>
    <message>
        <source>DEV SEL</source>
        <translation>SEL DISP</translation>
    </message>
    <message>
        <source>EFFECT</source>
        <translation>EFECTO</translation>
    </message>
    <message>
        <source>HIGH LIGHT</source>
        <translation>HIGH LIGHT</translation>
    </message>
    <message>
        <source>INT A</source>
        <translation>INT A</translation>
    </message>
    <message>
        <source>INT B</source>
        <translation>INT B</translation>
    </message>
    <message>
        <source>INT DEVICE</source>
        <translation>INT DISP</translation>
    </message>
    <message>
        <source>PARAM 1</source>
        <translation>PARAM 1</translation>
    </message>
    <message>
        <source>PARAM 2</source>
        <translation>PARAM 2</translation>
    </message>
    <message>
        <source>MEMS</source>
        <translation>MEMS</translation>
    </message>
    <message>
        <source>INT ONLY</source>
        <translation>SOLO INT</translation>
    </message>
    <message>
        <source>GO MODE</source>
        <translation>MODO GO</translation>
    </message>
    <message>
        <source>SELECT MODE</source>
        <translation>MODO SELECCIÓN</translation>
    </message>
    <message>
        <source>FADER MODE</source>
        <translation>MODO FADERS</translation>
    </message>
    <message>
        <source>MEMS MODE</source>
        <translation>MODO MEMS</translation>
    </message>
    <message>
        <source>PAGE</source>
        <translation>PÁGINA</translation>
    </message>
</context>
<context>
    <name>MainFrame</name>
    <message>
        <source>Connection error</source>
        <translation>Error de conexión</translation>
    </message>
    <message>
        <source>Exit Lumidesk</source>
        <translation>Salir de Lumidesk</translation>
    </message>
    <message>
        <source>Save showfile</source>
        <translation>Guardar archivo de espectáculo</translation>
    </message>
    <message>
        <source>Show files (*.asc)</source>
        <translation>Archivos de espectáculo (*.asc)</translation>
    </message>
    <message>
        <source>The Glowcraft console must be running in Normal mode in order to connect to Lumidesk.</source>
        <translation>La consola Glowcraft debe funcionar en modo Normal para poder conectarse a Lumidesk.</translation>
    </message>
    <message>
        <source>The console software version does not match the Lumidesk software version.
Please update one or both sides to a matching version.</source>
        <translation>La versión del software de la consola no coincide con la versión del software de Lumidesk.
Actualice uno o ambos lados a versiones que coincidan.</translation>
    </message>
    <message>
        <source>Would you like to save your data first?</source>
        <translation>¿Desea guardar primero sus datos?</translation>
    </message>
</context>
<context>
    <name>PagesBlock</name>
    <message>
        <source>FADER</source>
        <translation>FADER</translation>
    </message>
    <message>
        <source>PAGE</source>
        <translation>PÁGINA</translation>
    </message>
</context>
<context>
    <name>PagesView</name>
    <message>
        <source>Pages</source>
        <translation>Páginas</translation>
    </message>
    <message>
        <source>Pages Hi</source>
        <translation>Páginas Hi</translation>
    </message>
    <message>
        <source>Pages Lo</source>
        <translation>Páginas Lo</translation>
    </message>
</context>
<context>
    <name>SequencesView</name>
    <message>
        <source>Seq/Stack edit</source>
        <translation>Editar Sec/Stack</translation>
    </message>
    <message>
        <source>stack</source>
        <translation>stack</translation>
    </message>
    <message>
        <source>seq</source>
        <translation>sec</translation>
    </message>
    <message>
        <source>Stack</source>
        <translation>Stack</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Página</translation>
    </message>
    <message>
        <source>Sequence</source>
        <translation>Secuencia</translation>
    </message>
    <message>
        <source>Stack/Seq Edit</source>
        <translation>Editar Stack/Sec</translation>
    </message>
</context>
<context>
    <name>Timeline</name>
    <message>
        <source>&gt;</source>
        <translation>&gt;</translation>
    </message>
    <message>
        <source>||</source>
        <translation>||</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Inicio</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Fin</translation>
    </message>
    <message>
        <source>Remaining time</source>
        <translation>Tiempo restante</translation>
    </message>
    <message>
        <source>UP</source>
        <translation>SUBIDA</translation>
    </message>
    <message>
        <source>DOWN</source>
        <translation>BAJADA</translation>
    </message>
    <message>
        <source>WAIT</source>
        <translation>ESPERA</translation>
    </message>
    <message>
        <source>RATE</source>
        <translation>VELOC.</translation>
    </message>
    <message>
        <source>FADE</source>
        <translation>FUNDIDO</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Change language</source>
        <translation>Cambiar idioma</translation>
    </message>
    <message>
        <source>You must restart Lumidesk in order for the language change to take effect!</source>
        <translation>¡Debe reiniciar Lumidesk para que el cambio de idioma surta efecto!</translation>
    </message>
</context>
<context>
    <name>movesequencestepdialogClass</name>
    <message>
        <source>Move sequence step</source>
        <translation>Mover paso de secuencia</translation>
    </message>
    <message>
        <source>Cue number</source>
        <translation>Número de cue</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Mover</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
</TS>
