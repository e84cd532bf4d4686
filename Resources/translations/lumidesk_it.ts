<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>ConsoleCache</name>
    <message>
        <source>Cue</source>
        <translation>Cue</translation>
    </message>
    <message>
        <source>Focus</source>
        <translation>Fuoco</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Colore</translation>
    </message>
    <message>
        <source>Beam</source>
        <translation>Fascio</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Utente</translation>
    </message>
</context>
<context>
    <name>Cuelist</name>
    <message>
        <source>Step</source>
        <translation>Passo</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>Contenuto</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Salita</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Discesa</translation>
    </message>
    <message>
        <source>Wait</source>
        <translation>Attesa</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Muovi</translation>
    </message>
    <message>
        <source>Affects</source>
        <translation>Influisce</translation>
    </message>
    <message>
        <source>NEXT</source>
        <translation>NEXT</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Ciclo</translation>
    </message>
    <message>
        <source>One Shot</source>
        <translation>Una volta</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuale</translation>
    </message>
    <message>
        <source>LIVE</source>
        <translation>LIVE</translation>
    </message>
    <message>
        <source>dark</source>
        <translation>buio</translation>
    </message>
</context>
<context>
    <name>Cuematrix</name>
    <message>
        <source>[empty]</source>
        <translation>[vuoto]</translation>
    </message>
    <message>
        <source>Insert step</source>
        <translation>Inserisci passo</translation>
    </message>
    <message>
        <source>No space to insert a cue here</source>
        <translation>Non c'è spazio per inserire una cue qui</translation>
    </message>
    <message>
        <source>Delete step</source>
        <translation>Elimina passo</translation>
    </message>
    <message>
        <source>Are you sure?</source>
        <translation>Sei sicuro?</translation>
    </message>
    <message>
        <source>Move step</source>
        <translation>Sposta passo</translation>
    </message>
    <message>
        <source>No space to move a cue here</source>
        <translation>Non c'è spazio per spostare una cue qui</translation>
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
        <translation>Uscita</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Ingresso</translation>
    </message>
    <message>
        <source>DMX Outputs</source>
        <translation>Uscite DMX</translation>
    </message>
    <message>
        <source>DMX In/Out</source>
        <translation>DMX Ing/Usc</translation>
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
        <translation>Pan fine</translation>
    </message>
    <message>
        <source>Tilt Fine</source>
        <translation>Tilt fine</translation>
    </message>
    <message>
        <source>Red/Cyan</source>
        <translation>Rosso/Ciano</translation>
    </message>
    <message>
        <source>Green/Mag</source>
        <translation>Verde/Mag</translation>
    </message>
    <message>
        <source>Blue/Yellow</source>
        <translation>Blu/Giallo</translation>
    </message>
    <message>
        <source>Color 1</source>
        <translation>Colore 1</translation>
    </message>
    <message>
        <source>Color 2</source>
        <translation>Colore 2</translation>
    </message>
    <message>
        <source>Color Temp</source>
        <translation>Temp col</translation>
    </message>
    <message>
        <source>Color Effect</source>
        <translation>Effetto col</translation>
    </message>
    <message>
        <source>Shutter</source>
        <translation>Otturatore</translation>
    </message>
    <message>
        <source>Prism</source>
        <translation>Prisma</translation>
    </message>
    <message>
        <source>Beam 2</source>
        <translation>Fascio 2</translation>
    </message>
    <message>
        <source>Gobo 1</source>
        <translation>Gobo 1</translation>
    </message>
    <message>
        <source>Gobo 1 Index</source>
        <translation>Gobo 1 Indice</translation>
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
        <translation>Gobo 2 Indice</translation>
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
        <translation>Bordo</translation>
    </message>
    <message>
        <source>Iris</source>
        <translation>Iride</translation>
    </message>
    <message>
        <source>Frost</source>
        <translation>Frost</translation>
    </message>
    <message>
        <source>User 1</source>
        <translation>Utente 1</translation>
    </message>
    <message>
        <source>User 2</source>
        <translation>Utente 2</translation>
    </message>
    <message>
        <source>User 3</source>
        <translation>Utente 3</translation>
    </message>
    <message>
        <source>User 4</source>
        <translation>Utente 4</translation>
    </message>
    <message>
        <source>User 5</source>
        <translation>Utente 5</translation>
    </message>
    <message>
        <source>User 6</source>
        <translation>Utente 6</translation>
    </message>
    <message>
        <source>User 7</source>
        <translation>Utente 7</translation>
    </message>
    <message>
        <source>User 8</source>
        <translation>Utente 8</translation>
    </message>
    <message>
        <source>Effect 1</source>
        <translation>Effetto 1</translation>
    </message>
    <message>
        <source>Effect 1 Mode</source>
        <translation>Effetto 1 Modo</translation>
    </message>
    <message>
        <source>Effect 2</source>
        <translation>Effetto 2</translation>
    </message>
    <message>
        <source>Effect 2 Mode</source>
        <translation>Effetto 2 Modo</translation>
    </message>
    <message>
        <source>Blade 1A</source>
        <translation>Lama 1A</translation>
    </message>
    <message>
        <source>Blade 1B</source>
        <translation>Lama 1B</translation>
    </message>
    <message>
        <source>Blade 2A</source>
        <translation>Lama 2A</translation>
    </message>
    <message>
        <source>Blade 2B</source>
        <translation>Lama 2B</translation>
    </message>
    <message>
        <source>Blade 3A</source>
        <translation>Lama 3A</translation>
    </message>
    <message>
        <source>Blade 3B</source>
        <translation>Lama 3B</translation>
    </message>
    <message>
        <source>Blade 4A</source>
        <translation>Lama 4A</translation>
    </message>
    <message>
        <source>Blade 4B</source>
        <translation>Lama 4B</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Rotazione</translation>
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
        <translation>Non annullato: la console lo ha modificato nel frattempo</translation>
    </message>
    <message>
        <source>Not redone: the console has changed it since</source>
        <translation>Non ripristinato: la console lo ha modificato nel frattempo</translation>
    </message>
</context>
<context>
    <name>EffectsView</name>
    <message>
        <source>Shape
Effects</source>
        <translation>Effetti
forma</translation>
    </message>
    <message>
        <source>Linear
Effects</source>
        <translation>Effetti
lineari</translation>
    </message>
    <message>
        <source>Color
Effects</source>
        <translation>Effetti
colore</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Velocità</translation>
    </message>
    <message>
        <source>Chroma</source>
        <translation>Croma</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>Ampiezza</translation>
    </message>
    <message>
        <source>Aspect</source>
        <translation>Aspetto</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Rotazione</translation>
    </message>
    <message>
        <source>Base</source>
        <translation>Base</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Escursione</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>Stile</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nome</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nessuno</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Avanti</translation>
    </message>
    <message>
        <source>Backward</source>
        <translation>Indietro</translation>
    </message>
    <message>
        <source>Bounce</source>
        <translation>Avanti e indietro</translation>
    </message>
    <message>
        <source>Effects Edit</source>
        <translation>Modifica effetti</translation>
    </message>
    <message>
        <source>Shape effects</source>
        <translation>Effetti forma</translation>
    </message>
    <message>
        <source>Linear effects</source>
        <translation>Effetti lineari</translation>
    </message>
    <message>
        <source>Color effects</source>
        <translation>Effetti colore</translation>
    </message>
    <message>
        <source>SELECT</source>
        <translation>SELEZIONE</translation>
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
        <translation>MEM</translation>
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
        <translation>FLASH</translation>
    </message>
    <message>
        <source>PAGE</source>
        <translation>PAGINA</translation>
    </message>
</context>
<context>
    <name>GroupsView</name>
    <message>
        <source>GROUP</source>
        <translation>GRUPPO</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Gruppi</translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation>APPARECCHIO</translation>
    </message>
</context>
<context>
    <name>InsertSequenceStepDialogClass</name>
    <message>
        <source>Insert sequence step</source>
        <translation>Inserisci passo della sequenza</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Canale</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>Memoria</translation>
    </message>
    <message>
        <source>Direct cue</source>
        <translation>Cue diretta</translation>
    </message>
    <message>
        <source>Cue number</source>
        <translation>Numero di cue</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Inserisci</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
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
        <translation>Selezionare il tipo di console:</translation>
    </message>
    <message>
        <source>&lt;p&gt;The latest console and Lumidesk software is available at &lt;a href="https://www.glowcraft-lighting.com/software"&gt;www.glowcraft-lighting.com/software&lt;/a&gt;.&lt;/p&gt;&lt;p style="color:#808080"&gt;Glowcraft, Alder, Birch, Cedar and Maple are trademarks of Glowcraft Lighting.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Il software più recente per la console e per Lumidesk è disponibile su &lt;a href="https://www.glowcraft-lighting.com/software"&gt;www.glowcraft-lighting.com/software&lt;/a&gt;.&lt;/p&gt;&lt;p style="color:#808080"&gt;Glowcraft, Alder, Birch, Cedar e Maple sono marchi di Glowcraft Lighting.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Run Lumidesk with a %1 console</source>
        <translation>Usare Lumidesk con una console %1</translation>
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
        <translation>Riproduzione</translation>
    </message>
</context>
<context>
    <name>Lumidesk</name>
    <message>
        <source>Connection error</source>
        <translation>Errore di connessione</translation>
    </message>
    <message>
        <source>The console software version does not match the Lumidesk software version.
Please update one or both sides to a matching version.</source>
        <translation>La versione del software della console non corrisponde alla versione del software di Lumidesk.
Aggiornare uno o entrambi i lati a versioni corrispondenti.</translation>
    </message>
    <message>
        <source>Critical error</source>
        <translation>Errore critico</translation>
    </message>
    <message>
        <source>Lumidesk failed to load the console selected!</source>
        <translation>Lumidesk non è riuscito a caricare la console selezionata!</translation>
    </message>
</context>
<context>
    <name>MLButtonRow</name>
    <message>
        <source>FOCUS</source>
        <translation>FUOCO</translation>
    </message>
    <message>
        <source>COLOR</source>
        <translation>COLORE</translation>
    </message>
    <message>
        <source>BEAM</source>
        <translation>FASCIO</translation>
    </message>
    <message>
        <source>GROUP</source>
        <translation>GRUPPO</translation>
    </message>
    <message>
        <source>DEV SEL</source>
        <translation>SEL DISP</translation>
    </message>
    <message>
        <source>EFFECT</source>
        <translation>EFFETTO</translation>
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
        <translation>MEM</translation>
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
        <translation>MODO SELEZIONE</translation>
    </message>
    <message>
        <source>FADER MODE</source>
        <translation>MODO FADER</translation>
    </message>
    <message>
        <source>MEMS MODE</source>
        <translation>MODO MEM</translation>
    </message>
    <message>
        <source>PAGE</source>
        <translation>PAGINA</translation>
    </message>
</context>
<context>
    <name>MainFrame</name>
    <message>
        <source>Connection error</source>
        <translation>Errore di connessione</translation>
    </message>
    <message>
        <source>Exit Lumidesk</source>
        <translation>Esci da Lumidesk</translation>
    </message>
    <message>
        <source>Save showfile</source>
        <translation>Salva file dello spettacolo</translation>
    </message>
    <message>
        <source>Show files (*.asc)</source>
        <translation>File dello spettacolo (*.asc)</translation>
    </message>
    <message>
        <source>The Glowcraft console must be running in Normal mode in order to connect to Lumidesk.</source>
        <translation>La console Glowcraft deve funzionare in modalità Normale per potersi collegare a Lumidesk.</translation>
    </message>
    <message>
        <source>The console software version does not match the Lumidesk software version.
Please update one or both sides to a matching version.</source>
        <translation>La versione del software della console non corrisponde alla versione del software di Lumidesk.
Aggiornare uno o entrambi i lati a versioni corrispondenti.</translation>
    </message>
    <message>
        <source>Would you like to save your data first?</source>
        <translation>Desidera salvare prima i dati?</translation>
    </message>
</context>
<context>
    <name>MemoriesView</name>
    <message>
        <source>Mem Edit</source>
        <translation>Modifica mem.</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>Memoria</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Pagina</translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>(vuota)</translation>
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
        <translation>Live</translation>
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
        <translation>Imposta tavolozza</translation>
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
        <translation>PAGINA</translation>
    </message>
</context>
<context>
    <name>PagesView</name>
    <message>
        <source>Pages</source>
        <translation>Pagine</translation>
    </message>
    <message>
        <source>Pages Hi</source>
        <translation>Pagine Hi</translation>
    </message>
    <message>
        <source>Pages Lo</source>
        <translation>Pagine Lo</translation>
    </message>
</context>
<context>
    <name>PaletteMenu</name>
    <message>
        <source>Set palette</source>
        <translation>Imposta palette</translation>
    </message>
</context>
<context>
    <name>PalettesView</name>
    <message>
        <source>Palettes</source>
        <translation>Palette</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>Palette</translation>
    </message>
    <message>
        <source>FOCUS PALETTE</source>
        <translation>PALETTE FOCUS</translation>
    </message>
    <message>
        <source>COLOR PALETTE</source>
        <translation>PALETTE COLORE</translation>
    </message>
    <message>
        <source>BEAM PALETTE</source>
        <translation>PALETTE FASCIO</translation>
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
        <translation>Ripatcha dispositivi</translation>
    </message>
    <message>
        <source>Could not repatch the selected devices as they would not fit within the universe!</source>
        <translation>Impossibile ripatchare i dispositivi selezionati perché non entrerebbero nell'universo!</translation>
    </message>
    <message>
        <source>missing personalities</source>
        <translation>personalità mancanti</translation>
    </message>
    <message>
        <source>channels</source>
        <translation>canali</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Uscita</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Uscite</translation>
    </message>
    <message>
        <source>Unpatched</source>
        <translation>Non patchato</translation>
    </message>
    <message>
        <source>Universe</source>
        <translation>Universo</translation>
    </message>
    <message>
        <source>Un-patch</source>
        <translation>Togli patch</translation>
    </message>
    <message>
        <source>On level</source>
        <translation>Livello acceso</translation>
    </message>
    <message>
        <source>Button mode</source>
        <translation>Modalità tasto</translation>
    </message>
    <message>
        <source>Affected by GM</source>
        <translation>Influenzato dal GM</translation>
    </message>
    <message>
        <source>LATCH</source>
        <translation>FISSO</translation>
    </message>
    <message>
        <source>BUMP</source>
        <translation>MOMENTANEO</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>SÌ</translation>
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
        <translation>Modifica Seq/Stack</translation>
    </message>
    <message>
        <source>stack</source>
        <translation>stack</translation>
    </message>
    <message>
        <source>seq</source>
        <translation>seq</translation>
    </message>
    <message>
        <source>Stack</source>
        <translation>Stack</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Pagina</translation>
    </message>
    <message>
        <source>Sequence</source>
        <translation>Sequenza</translation>
    </message>
    <message>
        <source>Stack/Seq Edit</source>
        <translation>Modifica Stack/Seq</translation>
    </message>
</context>
<context>
    <name>SystemView</name>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nuovo</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Apri</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Salva</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Salva con nome</translation>
    </message>
    <message>
        <source>Memories</source>
        <translation>Memorie</translation>
    </message>
    <message>
        <source>Sequences</source>
        <translation>Sequenze</translation>
    </message>
    <message>
        <source>Stack</source>
        <translation>Pila</translation>
    </message>
    <message>
        <source>Palettes</source>
        <translation>Palette</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Tutto</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Cancella</translation>
    </message>
    <message>
        <source>Crossfader</source>
        <translation>Crossfader</translation>
    </message>
    <message>
        <source>Upwards only</source>
        <translation>Solo verso l'alto</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>In entrambi i sensi</translation>
    </message>
    <message>
        <source>DMX Output</source>
        <translation>Uscita DMX</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Massima</translation>
    </message>
    <message>
        <source>Fast</source>
        <translation>Veloce</translation>
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
        <translation>Ingresso DMX</translation>
    </message>
    <message>
        <source>Merge with output</source>
        <translation>Unisci all'uscita</translation>
    </message>
    <message>
        <source>On fader 01/01</source>
        <translation>Sul fader 01/01</translation>
    </message>
    <message>
        <source>DMX Backup</source>
        <translation>Backup DMX</translation>
    </message>
    <message>
        <source>Bump = Flash</source>
        <translation>Bump = Flash</translation>
    </message>
    <message>
        <source>Bump = Enable</source>
        <translation>Bump = Abilita</translation>
    </message>
    <message>
        <source>MIDI</source>
        <translation>MIDI</translation>
    </message>
    <message>
        <source>MIDI channel</source>
        <translation>Canale MIDI</translation>
    </message>
    <message>
        <source>MIDI (music) on</source>
        <translation>MIDI (musica) attivo</translation>
    </message>
    <message>
        <source>MIDI MSC i.d.</source>
        <translation>ID MIDI MSC</translation>
    </message>
    <message>
        <source>MIDI MSC on</source>
        <translation>MIDI MSC attivo</translation>
    </message>
    <message>
        <source>Default times</source>
        <translation>Tempi predefiniti</translation>
    </message>
    <message>
        <source>Up fade</source>
        <translation>Salita</translation>
    </message>
    <message>
        <source>Down fade</source>
        <translation>Discesa</translation>
    </message>
    <message>
        <source>Wait</source>
        <translation>Attesa</translation>
    </message>
    <message>
        <source>Move Dark</source>
        <translation>Move Dark</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>Palette</translation>
    </message>
    <message>
        <source>User mode</source>
        <translation>Modalità utente</translation>
    </message>
    <message>
        <source>Full control</source>
        <translation>Controllo completo</translation>
    </message>
    <message>
        <source>Control &amp; Playback</source>
        <translation>Controllo e riproduzione</translation>
    </message>
    <message>
        <source>Playback only</source>
        <translation>Solo riproduzione</translation>
    </message>
    <message>
        <source>Lumidesk version</source>
        <translation>Versione Lumidesk</translation>
    </message>
    <message>
        <source>DLL version</source>
        <translation>Versione DLL</translation>
    </message>
    <message>
        <source>Library version</source>
        <translation>Versione libreria</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Sistema</translation>
    </message>
    <message>
        <source>Pan / Tilt modify</source>
        <translation>Modifica pan / tilt</translation>
    </message>
    <message>
        <source>Device#</source>
        <translation>Apparecchio#</translation>
    </message>
    <message>
        <source>Invert Pan</source>
        <translation>Inverti pan</translation>
    </message>
    <message>
        <source>Invert Tilt</source>
        <translation>Inverti tilt</translation>
    </message>
    <message>
        <source>Swap P/T</source>
        <translation>Scambia P/T</translation>
    </message>
    <message>
        <source>Open showfile</source>
        <translation>Apri file dello spettacolo</translation>
    </message>
    <message>
        <source>Show files (*.asc)</source>
        <translation>File dello spettacolo (*.asc)</translation>
    </message>
    <message>
        <source>This show file originates from another type of console and cannot be read!</source>
        <translation>Questo file dello spettacolo proviene da un altro tipo di console e non può essere letto!</translation>
    </message>
    <message>
        <source>There was an error reading the show file!</source>
        <translation>Si è verificato un errore durante la lettura del file dello spettacolo!</translation>
    </message>
    <message>
        <source>Save showfile</source>
        <translation>Salva file dello spettacolo</translation>
    </message>
    <message>
        <source>New show</source>
        <translation>Nuovo spettacolo</translation>
    </message>
    <message>
        <source>This will erase all data, OK to proceed?</source>
        <translation>Verranno cancellati tutti i dati. Procedere?</translation>
    </message>
    <message>
        <source>Erase memories</source>
        <translation>Cancella memorie</translation>
    </message>
    <message>
        <source>This will erase all memories, OK to proceed?</source>
        <translation>Verranno cancellate tutte le memorie. Procedere?</translation>
    </message>
    <message>
        <source>Erase sequences</source>
        <translation>Cancella sequenze</translation>
    </message>
    <message>
        <source>This will erase all sequences, OK to proceed?</source>
        <translation>Verranno cancellate tutte le sequenze. Procedere?</translation>
    </message>
    <message>
        <source>Erase stack</source>
        <translation>Cancella pila</translation>
    </message>
    <message>
        <source>This will erase all data in the stack, OK to proceed?</source>
        <translation>Verranno cancellati tutti i dati della pila. Procedere?</translation>
    </message>
    <message>
        <source>Erase palettes</source>
        <translation>Cancella palette</translation>
    </message>
    <message>
        <source>This will erase all palettes, OK to proceed?</source>
        <translation>Verranno cancellate tutte le palette. Procedere?</translation>
    </message>
    <message>
        <source>Erase all</source>
        <translation>Cancella tutto</translation>
    </message>
    <message>
        <source>The show could not be saved to %1!</source>
        <translation>Non è stato possibile salvare lo spettacolo in %1!</translation>
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
        <translation>Inizio</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Fine</translation>
    </message>
    <message>
        <source>Remaining time</source>
        <translation>Tempo residuo</translation>
    </message>
    <message>
        <source>UP</source>
        <translation>SALITA</translation>
    </message>
    <message>
        <source>DOWN</source>
        <translation>DISCESA</translation>
    </message>
    <message>
        <source>WAIT</source>
        <translation>ATTESA</translation>
    </message>
    <message>
        <source>RATE</source>
        <translation>VELOCITÀ</translation>
    </message>
    <message>
        <source>FADE</source>
        <translation>DISSOLV.</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Change language</source>
        <translation>Cambia lingua</translation>
    </message>
    <message>
        <source>You must restart Lumidesk in order for the language change to take effect!</source>
        <translation>È necessario riavviare Lumidesk perché il cambio di lingua abbia effetto!</translation>
    </message>
</context>
<context>
    <name>movesequencestepdialogClass</name>
    <message>
        <source>Move sequence step</source>
        <translation>Sposta passo della sequenza</translation>
    </message>
    <message>
        <source>Cue number</source>
        <translation>Numero di cue</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Sposta</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
</context>
</TS>
