<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>ConsoleCache</name>
    <message>
        <source>Cue</source>
        <translation>Cue</translation>
    </message>
    <message>
        <source>Focus</source>
        <translation>Foco</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Color</translation>
    </message>
    <message>
        <source>Beam</source>
        <translation>Haz</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Usuario</translation>
    </message>
</context>
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
    <name>DMXView</name>
    <message>
        <source>Universe</source>
        <translation>Universo</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Salida</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Entrada</translation>
    </message>
    <message>
        <source>DMX Outputs</source>
        <translation>Salidas DMX</translation>
    </message>
    <message>
        <source>DMX In/Out</source>
        <translation>DMX Ent/Sal</translation>
    </message>
</context>
<context>
    <name>DevicePart</name>
    <message>
        <source>Pan</source>
        <translation>Pan</translation>
    </message>
    <message>
        <source>Tilt</source>
        <translation>Tilt</translation>
    </message>
    <message>
        <source>Pan Fine</source>
        <translation>Pan fino</translation>
    </message>
    <message>
        <source>Tilt Fine</source>
        <translation>Tilt fino</translation>
    </message>
    <message>
        <source>Red/Cyan</source>
        <translation>Rojo/Cian</translation>
    </message>
    <message>
        <source>Green/Mag</source>
        <translation>Verde/Mag</translation>
    </message>
    <message>
        <source>Blue/Yellow</source>
        <translation>Azul/Amar</translation>
    </message>
    <message>
        <source>Color 1</source>
        <translation>Color 1</translation>
    </message>
    <message>
        <source>Color 2</source>
        <translation>Color 2</translation>
    </message>
    <message>
        <source>Color Temp</source>
        <translation>Temp color</translation>
    </message>
    <message>
        <source>Color Effect</source>
        <translation>Efecto col</translation>
    </message>
    <message>
        <source>Shutter</source>
        <translation>Obturador</translation>
    </message>
    <message>
        <source>Prism</source>
        <translation>Prisma</translation>
    </message>
    <message>
        <source>Beam 2</source>
        <translation>Haz 2</translation>
    </message>
    <message>
        <source>Gobo 1</source>
        <translation>Gobo 1</translation>
    </message>
    <message>
        <source>Gobo 1 Index</source>
        <translation>Gobo 1 Índice</translation>
    </message>
    <message>
        <source>Gobo 1 Rot</source>
        <translation>Gobo 1 Rot</translation>
    </message>
    <message>
        <source>Gobo 1 Mode</source>
        <translation>Gobo 1 Modo</translation>
    </message>
    <message>
        <source>Gobo 2</source>
        <translation>Gobo 2</translation>
    </message>
    <message>
        <source>Gobo 2 Index</source>
        <translation>Gobo 2 Índice</translation>
    </message>
    <message>
        <source>Gobo 2 Rot</source>
        <translation>Gobo 2 Rot</translation>
    </message>
    <message>
        <source>Gobo 2 Mode</source>
        <translation>Gobo 2 Modo</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Edge</source>
        <translation>Borde</translation>
    </message>
    <message>
        <source>Iris</source>
        <translation>Iris</translation>
    </message>
    <message>
        <source>Frost</source>
        <translation>Frost</translation>
    </message>
    <message>
        <source>User 1</source>
        <translation>Usuario 1</translation>
    </message>
    <message>
        <source>User 2</source>
        <translation>Usuario 2</translation>
    </message>
    <message>
        <source>User 3</source>
        <translation>Usuario 3</translation>
    </message>
    <message>
        <source>User 4</source>
        <translation>Usuario 4</translation>
    </message>
    <message>
        <source>User 5</source>
        <translation>Usuario 5</translation>
    </message>
    <message>
        <source>User 6</source>
        <translation>Usuario 6</translation>
    </message>
    <message>
        <source>User 7</source>
        <translation>Usuario 7</translation>
    </message>
    <message>
        <source>User 8</source>
        <translation>Usuario 8</translation>
    </message>
    <message>
        <source>Effect 1</source>
        <translation>Efecto 1</translation>
    </message>
    <message>
        <source>Effect 1 Mode</source>
        <translation>Efecto 1 Modo</translation>
    </message>
    <message>
        <source>Effect 2</source>
        <translation>Efecto 2</translation>
    </message>
    <message>
        <source>Effect 2 Mode</source>
        <translation>Efecto 2 Modo</translation>
    </message>
    <message>
        <source>Blade 1A</source>
        <translation>Cuchilla 1A</translation>
    </message>
    <message>
        <source>Blade 1B</source>
        <translation>Cuchilla 1B</translation>
    </message>
    <message>
        <source>Blade 2A</source>
        <translation>Cuchilla 2A</translation>
    </message>
    <message>
        <source>Blade 2B</source>
        <translation>Cuchilla 2B</translation>
    </message>
    <message>
        <source>Blade 3A</source>
        <translation>Cuchilla 3A</translation>
    </message>
    <message>
        <source>Blade 3B</source>
        <translation>Cuchilla 3B</translation>
    </message>
    <message>
        <source>Blade 4A</source>
        <translation>Cuchilla 4A</translation>
    </message>
    <message>
        <source>Blade 4B</source>
        <translation>Cuchilla 4B</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Rotación</translation>
    </message>
    <message>
        <source>Macro 1</source>
        <translation>Macro 1</translation>
    </message>
    <message>
        <source>Macro 2</source>
        <translation>Macro 2</translation>
    </message>
    <message>
        <source>Macro 3</source>
        <translation>Macro 3</translation>
    </message>
</context>
<context>
    <name>EditJournal</name>
    <message>
        <source>Not undone: the console has changed it since</source>
        <translation>No deshecho: la consola lo ha cambiado desde entonces</translation>
    </message>
    <message>
        <source>Not redone: the console has changed it since</source>
        <translation>No rehecho: la consola lo ha cambiado desde entonces</translation>
    </message>
</context>
<context>
    <name>EffectsView</name>
    <message>
        <source>Shape
Effects</source>
        <translation>Efectos
de forma</translation>
    </message>
    <message>
        <source>Linear
Effects</source>
        <translation>Efectos
lineales</translation>
    </message>
    <message>
        <source>Color
Effects</source>
        <translation>Efectos
de color</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Velocidad</translation>
    </message>
    <message>
        <source>Chroma</source>
        <translation>Croma</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>Profundidad</translation>
    </message>
    <message>
        <source>Aspect</source>
        <translation>Aspecto</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Rotación</translation>
    </message>
    <message>
        <source>Base</source>
        <translation>Base</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Rango</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>Estilo</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Ninguno</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Adelante</translation>
    </message>
    <message>
        <source>Backward</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Bounce</source>
        <translation>Rebote</translation>
    </message>
    <message>
        <source>Effects Edit</source>
        <translation>Editar efectos</translation>
    </message>
    <message>
        <source>Shape effects</source>
        <translation>Efectos de forma</translation>
    </message>
    <message>
        <source>Linear effects</source>
        <translation>Efectos lineales</translation>
    </message>
    <message>
        <source>Color effects</source>
        <translation>Efectos de color</translation>
    </message>
    <message>
        <source>SELECT</source>
        <translation>SELECCIÓN</translation>
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
    <name>GroupsView</name>
    <message>
        <source>GROUP</source>
        <translation>GRUPO</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Grupos</translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation>EQUIPO</translation>
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
    <name>MemoriesView</name>
    <message>
        <source>Mem Edit</source>
        <translation>Editar mem.</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>Memoria</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Página</translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>(vacía)</translation>
    </message>
    <message>
        <source>Ch %1-%2</source>
        <translation>Can %1-%2</translation>
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
        <source>INT DEV</source>
        <translation>INT DISP</translation>
    </message>
</context>
<context>
    <name>OutputView</name>
    <message>
        <source>Live</source>
        <translation>En vivo</translation>
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
        <source>INT DEV</source>
        <translation>INT DISP</translation>
    </message>
    <message>
        <source>Set palette</source>
        <translation>Aplicar paleta</translation>
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
    <name>PaletteMenu</name>
    <message>
        <source>Set palette</source>
        <translation>Aplicar paleta</translation>
    </message>
</context>
<context>
    <name>PalettesView</name>
    <message>
        <source>Palettes</source>
        <translation>Paletas</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>Paleta</translation>
    </message>
    <message>
        <source>FOCUS PALETTE</source>
        <translation>PALETA FOCO</translation>
    </message>
    <message>
        <source>COLOR PALETTE</source>
        <translation>PALETA COLOR</translation>
    </message>
    <message>
        <source>BEAM PALETTE</source>
        <translation>PALETA HAZ</translation>
    </message>
</context>
<context>
    <name>PatchView</name>
    <message>
        <source>Patch</source>
        <translation>Patch</translation>
    </message>
    <message>
        <source>Repatch devices</source>
        <translation>Repatchear dispositivos</translation>
    </message>
    <message>
        <source>Could not repatch the selected devices as they would not fit within the universe!</source>
        <translation>No se pudieron repatchear los dispositivos seleccionados porque no cabrían en el universo.</translation>
    </message>
    <message>
        <source>missing personalities</source>
        <translation>faltan personalidades</translation>
    </message>
    <message>
        <source>channels</source>
        <translation>canales</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Salida</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Salidas</translation>
    </message>
    <message>
        <source>Unpatched</source>
        <translation>Sin patch</translation>
    </message>
    <message>
        <source>Universe</source>
        <translation>Universo</translation>
    </message>
    <message>
        <source>Un-patch</source>
        <translation>Quitar patch</translation>
    </message>
    <message>
        <source>On level</source>
        <translation>Nivel de encendido</translation>
    </message>
    <message>
        <source>Button mode</source>
        <translation>Modo de botón</translation>
    </message>
    <message>
        <source>Affected by GM</source>
        <translation>Afectado por GM</translation>
    </message>
    <message>
        <source>LATCH</source>
        <translation>FIJO</translation>
    </message>
    <message>
        <source>BUMP</source>
        <translation>PULSO</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>SÍ</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>NO</translation>
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
    <name>SystemView</name>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nuevo</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Guardar como</translation>
    </message>
    <message>
        <source>Memories</source>
        <translation>Memorias</translation>
    </message>
    <message>
        <source>Sequences</source>
        <translation>Secuencias</translation>
    </message>
    <message>
        <source>Stack</source>
        <translation>Pila</translation>
    </message>
    <message>
        <source>Palettes</source>
        <translation>Paletas</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Todo</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Borrar</translation>
    </message>
    <message>
        <source>Crossfader</source>
        <translation>Crossfader</translation>
    </message>
    <message>
        <source>Upwards only</source>
        <translation>Solo hacia arriba</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>En ambos sentidos</translation>
    </message>
    <message>
        <source>DMX Output</source>
        <translation>Salida DMX</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Máxima</translation>
    </message>
    <message>
        <source>Fast</source>
        <translation>Rápida</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Media</translation>
    </message>
    <message>
        <source>Slow</source>
        <translation>Lenta</translation>
    </message>
    <message>
        <source>DMX Input</source>
        <translation>Entrada DMX</translation>
    </message>
    <message>
        <source>Merge with output</source>
        <translation>Mezclar con la salida</translation>
    </message>
    <message>
        <source>On fader 01/01</source>
        <translation>En el fader 01/01</translation>
    </message>
    <message>
        <source>DMX Backup</source>
        <translation>Respaldo DMX</translation>
    </message>
    <message>
        <source>Bump = Flash</source>
        <translation>Bump = Flash</translation>
    </message>
    <message>
        <source>Bump = Enable</source>
        <translation>Bump = Activar</translation>
    </message>
    <message>
        <source>MIDI</source>
        <translation>MIDI</translation>
    </message>
    <message>
        <source>MIDI channel</source>
        <translation>Canal MIDI</translation>
    </message>
    <message>
        <source>MIDI (music) on</source>
        <translation>MIDI (música) activo</translation>
    </message>
    <message>
        <source>MIDI MSC i.d.</source>
        <translation>ID MIDI MSC</translation>
    </message>
    <message>
        <source>MIDI MSC on</source>
        <translation>MIDI MSC activo</translation>
    </message>
    <message>
        <source>Default times</source>
        <translation>Tiempos por defecto</translation>
    </message>
    <message>
        <source>Up fade</source>
        <translation>Fundido de subida</translation>
    </message>
    <message>
        <source>Down fade</source>
        <translation>Fundido de bajada</translation>
    </message>
    <message>
        <source>Wait</source>
        <translation>Espera</translation>
    </message>
    <message>
        <source>Move Dark</source>
        <translation>Move Dark</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>Paleta</translation>
    </message>
    <message>
        <source>User mode</source>
        <translation>Modo de usuario</translation>
    </message>
    <message>
        <source>Full control</source>
        <translation>Control total</translation>
    </message>
    <message>
        <source>Control &amp; Playback</source>
        <translation>Control y reproducción</translation>
    </message>
    <message>
        <source>Playback only</source>
        <translation>Solo reproducción</translation>
    </message>
    <message>
        <source>Lumidesk version</source>
        <translation>Versión de Lumidesk</translation>
    </message>
    <message>
        <source>DLL version</source>
        <translation>Versión de DLL</translation>
    </message>
    <message>
        <source>Library version</source>
        <translation>Versión de biblioteca</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Sistema</translation>
    </message>
    <message>
        <source>Pan / Tilt modify</source>
        <translation>Modificar pan / tilt</translation>
    </message>
    <message>
        <source>Device#</source>
        <translation>Equipo#</translation>
    </message>
    <message>
        <source>Invert Pan</source>
        <translation>Invertir pan</translation>
    </message>
    <message>
        <source>Invert Tilt</source>
        <translation>Invertir tilt</translation>
    </message>
    <message>
        <source>Swap P/T</source>
        <translation>Cambiar P/T</translation>
    </message>
    <message>
        <source>Open showfile</source>
        <translation>Abrir archivo de espectáculo</translation>
    </message>
    <message>
        <source>Show files (*.asc)</source>
        <translation>Archivos de espectáculo (*.asc)</translation>
    </message>
    <message>
        <source>This show file originates from another type of console and cannot be read!</source>
        <translation>¡Este archivo de espectáculo procede de otro tipo de consola y no se puede leer!</translation>
    </message>
    <message>
        <source>There was an error reading the show file!</source>
        <translation>¡Se produjo un error al leer el archivo de espectáculo!</translation>
    </message>
    <message>
        <source>Save showfile</source>
        <translation>Guardar archivo de espectáculo</translation>
    </message>
    <message>
        <source>New show</source>
        <translation>Nuevo espectáculo</translation>
    </message>
    <message>
        <source>This will erase all data, OK to proceed?</source>
        <translation>Se borrarán todos los datos. ¿Continuar?</translation>
    </message>
    <message>
        <source>Erase memories</source>
        <translation>Borrar memorias</translation>
    </message>
    <message>
        <source>This will erase all memories, OK to proceed?</source>
        <translation>Se borrarán todas las memorias. ¿Continuar?</translation>
    </message>
    <message>
        <source>Erase sequences</source>
        <translation>Borrar secuencias</translation>
    </message>
    <message>
        <source>This will erase all sequences, OK to proceed?</source>
        <translation>Se borrarán todas las secuencias. ¿Continuar?</translation>
    </message>
    <message>
        <source>Erase stack</source>
        <translation>Borrar pila</translation>
    </message>
    <message>
        <source>This will erase all data in the stack, OK to proceed?</source>
        <translation>Se borrarán todos los datos de la pila. ¿Continuar?</translation>
    </message>
    <message>
        <source>Erase palettes</source>
        <translation>Borrar paletas</translation>
    </message>
    <message>
        <source>This will erase all palettes, OK to proceed?</source>
        <translation>Se borrarán todas las paletas. ¿Continuar?</translation>
    </message>
    <message>
        <source>Erase all</source>
        <translation>Borrar todo</translation>
    </message>
    <message>
        <source>The show could not be saved to %1!</source>
        <translation>¡No se pudo guardar el espectáculo en %1!</translation>
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
