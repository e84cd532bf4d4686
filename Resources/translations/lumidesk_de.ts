<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ConsoleCache</name>
    <message>
        <source>Cue</source>
        <translation>Cue</translation>
    </message>
    <message>
        <source>Focus</source>
        <translation>Fokus</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Beam</source>
        <translation>Strahl</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Benutzer</translation>
    </message>
</context>
<context>
    <name>Cuelist</name>
    <message>
        <source>Step</source>
        <translation>Schritt</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Auf</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Ab</translation>
    </message>
    <message>
        <source>Wait</source>
        <translation>Warten</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Bewegen</translation>
    </message>
    <message>
        <source>Affects</source>
        <translation>Betrifft</translation>
    </message>
    <message>
        <source>NEXT</source>
        <translation>NEXT</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Schleife</translation>
    </message>
    <message>
        <source>One Shot</source>
        <translation>Einmalig</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuell</translation>
    </message>
    <message>
        <source>LIVE</source>
        <translation>LIVE</translation>
    </message>
    <message>
        <source>dark</source>
        <translation>dunkel</translation>
    </message>
</context>
<context>
    <name>Cuematrix</name>
    <message>
        <source>[empty]</source>
        <translation>[leer]</translation>
    </message>
    <message>
        <source>Insert step</source>
        <translation>Schritt einfügen</translation>
    </message>
    <message>
        <source>No space to insert a cue here</source>
        <translation>Hier ist kein Platz, um eine Cue einzufügen</translation>
    </message>
    <message>
        <source>Delete step</source>
        <translation>Schritt löschen</translation>
    </message>
    <message>
        <source>Are you sure?</source>
        <translation>Sind Sie sicher?</translation>
    </message>
    <message>
        <source>Move step</source>
        <translation>Schritt verschieben</translation>
    </message>
    <message>
        <source>No space to move a cue here</source>
        <translation>Hier ist kein Platz, um eine Cue hin zu verschieben</translation>
    </message>
</context>
<context>
    <name>DMXView</name>
    <message>
        <source>Universe</source>
        <translation>Universum</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgang</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Eingang</translation>
    </message>
    <message>
        <source>DMX Outputs</source>
        <translation>DMX-Ausgänge</translation>
    </message>
    <message>
        <source>DMX In/Out</source>
        <translation>DMX Ein/Aus</translation>
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
        <translation>Pan fein</translation>
    </message>
    <message>
        <source>Tilt Fine</source>
        <translation>Tilt fein</translation>
    </message>
    <message>
        <source>Red/Cyan</source>
        <translation>Rot/Cyan</translation>
    </message>
    <message>
        <source>Green/Mag</source>
        <translation>Grün/Mag</translation>
    </message>
    <message>
        <source>Blue/Yellow</source>
        <translation>Blau/Gelb</translation>
    </message>
    <message>
        <source>Color 1</source>
        <translation>Farbe 1</translation>
    </message>
    <message>
        <source>Color 2</source>
        <translation>Farbe 2</translation>
    </message>
    <message>
        <source>Color Temp</source>
        <translation>Farbtemp</translation>
    </message>
    <message>
        <source>Color Effect</source>
        <translation>Farbeffekt</translation>
    </message>
    <message>
        <source>Shutter</source>
        <translation>Shutter</translation>
    </message>
    <message>
        <source>Prism</source>
        <translation>Prisma</translation>
    </message>
    <message>
        <source>Beam 2</source>
        <translation>Strahl 2</translation>
    </message>
    <message>
        <source>Gobo 1</source>
        <translation>Gobo 1</translation>
    </message>
    <message>
        <source>Gobo 1 Index</source>
        <translation>Gobo 1 Index</translation>
    </message>
    <message>
        <source>Gobo 1 Rot</source>
        <translation>Gobo 1 Rot</translation>
    </message>
    <message>
        <source>Gobo 1 Mode</source>
        <translation>Gobo 1 Modus</translation>
    </message>
    <message>
        <source>Gobo 2</source>
        <translation>Gobo 2</translation>
    </message>
    <message>
        <source>Gobo 2 Index</source>
        <translation>Gobo 2 Index</translation>
    </message>
    <message>
        <source>Gobo 2 Rot</source>
        <translation>Gobo 2 Rot</translation>
    </message>
    <message>
        <source>Gobo 2 Mode</source>
        <translation>Gobo 2 Modus</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Edge</source>
        <translation>Kante</translation>
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
        <translation>Benutzer 1</translation>
    </message>
    <message>
        <source>User 2</source>
        <translation>Benutzer 2</translation>
    </message>
    <message>
        <source>User 3</source>
        <translation>Benutzer 3</translation>
    </message>
    <message>
        <source>User 4</source>
        <translation>Benutzer 4</translation>
    </message>
    <message>
        <source>User 5</source>
        <translation>Benutzer 5</translation>
    </message>
    <message>
        <source>User 6</source>
        <translation>Benutzer 6</translation>
    </message>
    <message>
        <source>User 7</source>
        <translation>Benutzer 7</translation>
    </message>
    <message>
        <source>User 8</source>
        <translation>Benutzer 8</translation>
    </message>
    <message>
        <source>Effect 1</source>
        <translation>Effekt 1</translation>
    </message>
    <message>
        <source>Effect 1 Mode</source>
        <translation>Effekt 1 Modus</translation>
    </message>
    <message>
        <source>Effect 2</source>
        <translation>Effekt 2</translation>
    </message>
    <message>
        <source>Effect 2 Mode</source>
        <translation>Effekt 2 Modus</translation>
    </message>
    <message>
        <source>Blade 1A</source>
        <translation>Blende 1A</translation>
    </message>
    <message>
        <source>Blade 1B</source>
        <translation>Blende 1B</translation>
    </message>
    <message>
        <source>Blade 2A</source>
        <translation>Blende 2A</translation>
    </message>
    <message>
        <source>Blade 2B</source>
        <translation>Blende 2B</translation>
    </message>
    <message>
        <source>Blade 3A</source>
        <translation>Blende 3A</translation>
    </message>
    <message>
        <source>Blade 3B</source>
        <translation>Blende 3B</translation>
    </message>
    <message>
        <source>Blade 4A</source>
        <translation>Blende 4A</translation>
    </message>
    <message>
        <source>Blade 4B</source>
        <translation>Blende 4B</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Drehung</translation>
    </message>
    <message>
        <source>Macro 1</source>
        <translation>Makro 1</translation>
    </message>
    <message>
        <source>Macro 2</source>
        <translation>Makro 2</translation>
    </message>
    <message>
        <source>Macro 3</source>
        <translation>Makro 3</translation>
    </message>
</context>
<context>
    <name>EditJournal</name>
    <message>
        <source>Not undone: the console has changed it since</source>
        <translation>Nicht rückgängig gemacht: die Konsole hat es inzwischen geändert</translation>
    </message>
    <message>
        <source>Not redone: the console has changed it since</source>
        <translation>Nicht wiederhergestellt: die Konsole hat es inzwischen geändert</translation>
    </message>
</context>
<context>
    <name>EffectsView</name>
    <message>
        <source>Shape
Effects</source>
        <translation>Form-
Effekte</translation>
    </message>
    <message>
        <source>Linear
Effects</source>
        <translation>Lineare
Effekte</translation>
    </message>
    <message>
        <source>Color
Effects</source>
        <translation>Farb-
Effekte</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Chroma</source>
        <translation>Sättigung</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>Tiefe</translation>
    </message>
    <message>
        <source>Aspect</source>
        <translation>Seitenverh.</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Drehung</translation>
    </message>
    <message>
        <source>Base</source>
        <translation>Basis</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Bereich</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>Stil</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Kein</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vorwärts</translation>
    </message>
    <message>
        <source>Backward</source>
        <translation>Rückwärts</translation>
    </message>
    <message>
        <source>Bounce</source>
        <translation>Hin und her</translation>
    </message>
    <message>
        <source>Effects Edit</source>
        <translation>Effekte bearbeiten</translation>
    </message>
    <message>
        <source>Shape effects</source>
        <translation>Formeffekte</translation>
    </message>
    <message>
        <source>Linear effects</source>
        <translation>Lineare Effekte</translation>
    </message>
    <message>
        <source>Color effects</source>
        <translation>Farbeffekte</translation>
    </message>
    <message>
        <source>SELECT</source>
        <translation>AUSWAHL</translation>
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
        <translation>SPEICH</translation>
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
        <translation>SEITE</translation>
    </message>
</context>
<context>
    <name>GroupsView</name>
    <message>
        <source>GROUP</source>
        <translation>GRUPPE</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation>GERÄT</translation>
    </message>
</context>
<context>
    <name>InsertSequenceStepDialogClass</name>
    <message>
        <source>Insert sequence step</source>
        <translation>Sequenzschritt einfügen</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Direct cue</source>
        <translation>Direkte Cue</translation>
    </message>
    <message>
        <source>Cue number</source>
        <translation>Cue-Nummer</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
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
        <translation>Konsolentyp auswählen:</translation>
    </message>
    <message>
        <source>&lt;p&gt;The latest console and Lumidesk software is available at &lt;a href="https://www.glowcraft-lighting.com/software"&gt;www.glowcraft-lighting.com/software&lt;/a&gt;.&lt;/p&gt;&lt;p style="color:#808080"&gt;Glowcraft, Alder, Birch, Cedar and Maple are trademarks of Glowcraft Lighting.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Die neueste Software für Konsole und Lumidesk finden Sie unter &lt;a href="https://www.glowcraft-lighting.com/software"&gt;www.glowcraft-lighting.com/software&lt;/a&gt;.&lt;/p&gt;&lt;p style="color:#808080"&gt;Glowcraft, Alder, Birch, Cedar und Maple sind Marken von Glowcraft Lighting.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Run Lumidesk with a %1 console</source>
        <translation>Lumidesk mit einer %1-Konsole verwenden</translation>
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
        <translation>Wiedergabe</translation>
    </message>
</context>
<context>
    <name>Lumidesk</name>
    <message>
        <source>Connection error</source>
        <translation>Verbindungsfehler</translation>
    </message>
    <message>
        <source>The console software version does not match the Lumidesk software version.
Please update one or both sides to a matching version.</source>
        <translation>Die Softwareversion der Konsole passt nicht zur Softwareversion von Lumidesk.
Bitte bringen Sie eine oder beide Seiten auf eine passende Version.</translation>
    </message>
    <message>
        <source>Critical error</source>
        <translation>Kritischer Fehler</translation>
    </message>
    <message>
        <source>Lumidesk failed to load the console selected!</source>
        <translation>Lumidesk konnte die ausgewählte Konsole nicht laden!</translation>
    </message>
</context>
<context>
    <name>MLButtonRow</name>
    <message>
        <source>FOCUS</source>
        <translation>FOKUS</translation>
    </message>
    <message>
        <source>COLOR</source>
        <translation>FARBE</translation>
    </message>
    <message>
        <source>BEAM</source>
        <translation>STRAHL</translation>
    </message>
    <message>
        <source>GROUP</source>
        <translation>GRUPPE</translation>
    </message>
    <message>
        <source>DEV SEL</source>
        <translation>GER WAHL</translation>
    </message>
    <message>
        <source>EFFECT</source>
        <translation>EFFEKT</translation>
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
        <translation>INT GERÄT</translation>
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
        <translation>SPEICH</translation>
    </message>
    <message>
        <source>INT ONLY</source>
        <translation>NUR INT</translation>
    </message>
    <message>
        <source>GO MODE</source>
        <translation>GO MODUS</translation>
    </message>
    <message>
        <source>SELECT MODE</source>
        <translation>AUSWAHLMODUS</translation>
    </message>
    <message>
        <source>FADER MODE</source>
        <translation>FADERMODUS</translation>
    </message>
    <message>
        <source>MEMS MODE</source>
        <translation>SPEICHERMODUS</translation>
    </message>
    <message>
        <source>PAGE</source>
        <translation>SEITE</translation>
    </message>
</context>
<context>
    <name>MainFrame</name>
    <message>
        <source>Connection error</source>
        <translation>Verbindungsfehler</translation>
    </message>
    <message>
        <source>Exit Lumidesk</source>
        <translation>Lumidesk beenden</translation>
    </message>
    <message>
        <source>Save showfile</source>
        <translation>Showdatei speichern</translation>
    </message>
    <message>
        <source>Show files (*.asc)</source>
        <translation>Showdateien (*.asc)</translation>
    </message>
    <message>
        <source>The Glowcraft console must be running in Normal mode in order to connect to Lumidesk.</source>
        <translation>Die Glowcraft-Konsole muss im Normalmodus laufen, damit sie sich mit Lumidesk verbinden kann.</translation>
    </message>
    <message>
        <source>The console software version does not match the Lumidesk software version.
Please update one or both sides to a matching version.</source>
        <translation>Die Softwareversion der Konsole passt nicht zur Softwareversion von Lumidesk.
Bitte bringen Sie eine oder beide Seiten auf eine passende Version.</translation>
    </message>
    <message>
        <source>Would you like to save your data first?</source>
        <translation>Möchten Sie Ihre Daten zuerst speichern?</translation>
    </message>
</context>
<context>
    <name>MemoriesView</name>
    <message>
        <source>Mem Edit</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>(leer)</translation>
    </message>
    <message>
        <source>Ch %1-%2</source>
        <translation>Kan %1-%2</translation>
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
        <translation>INT GER</translation>
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
        <translation>INT GER</translation>
    </message>
    <message>
        <source>Set palette</source>
        <translation>Palette setzen</translation>
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
        <translation>SEITE</translation>
    </message>
</context>
<context>
    <name>PagesView</name>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Pages Hi</source>
        <translation>Seiten Hi</translation>
    </message>
    <message>
        <source>Pages Lo</source>
        <translation>Seiten Lo</translation>
    </message>
</context>
<context>
    <name>PaletteMenu</name>
    <message>
        <source>Set palette</source>
        <translation>Palette setzen</translation>
    </message>
</context>
<context>
    <name>PalettesView</name>
    <message>
        <source>Palettes</source>
        <translation>Paletten</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>Palette</translation>
    </message>
    <message>
        <source>FOCUS PALETTE</source>
        <translation>FOKUS-PALETTE</translation>
    </message>
    <message>
        <source>COLOR PALETTE</source>
        <translation>FARBPALETTE</translation>
    </message>
    <message>
        <source>BEAM PALETTE</source>
        <translation>STRAHLPALETTE</translation>
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
        <translation>Geräte umpatchen</translation>
    </message>
    <message>
        <source>Could not repatch the selected devices as they would not fit within the universe!</source>
        <translation>Die ausgewählten Geräte konnten nicht umgepatcht werden, da sie nicht in das Universum passen würden!</translation>
    </message>
    <message>
        <source>missing personalities</source>
        <translation>fehlende Personalities</translation>
    </message>
    <message>
        <source>channels</source>
        <translation>Kanäle</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgang</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Ausgänge</translation>
    </message>
    <message>
        <source>Unpatched</source>
        <translation>Nicht gepatcht</translation>
    </message>
    <message>
        <source>Universe</source>
        <translation>Universum</translation>
    </message>
    <message>
        <source>Un-patch</source>
        <translation>Entpatchen</translation>
    </message>
    <message>
        <source>On level</source>
        <translation>Ein-Pegel</translation>
    </message>
    <message>
        <source>Button mode</source>
        <translation>Tastenmodus</translation>
    </message>
    <message>
        <source>Affected by GM</source>
        <translation>Von GM beeinflusst</translation>
    </message>
    <message>
        <source>LATCH</source>
        <translation>RASTEND</translation>
    </message>
    <message>
        <source>BUMP</source>
        <translation>TASTEND</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>JA</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>NEIN</translation>
    </message>
</context>
<context>
    <name>SequencesView</name>
    <message>
        <source>Seq/Stack edit</source>
        <translation>Seq/Stack bearbeiten</translation>
    </message>
    <message>
        <source>stack</source>
        <translation>Stack</translation>
    </message>
    <message>
        <source>seq</source>
        <translation>Seq</translation>
    </message>
    <message>
        <source>Stack</source>
        <translation>Stack</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Sequence</source>
        <translation>Sequenz</translation>
    </message>
    <message>
        <source>Stack/Seq Edit</source>
        <translation>Stack/Seq bearbeiten</translation>
    </message>
</context>
<context>
    <name>SystemView</name>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Memories</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Sequences</source>
        <translation>Sequenzen</translation>
    </message>
    <message>
        <source>Stack</source>
        <translation>Stack</translation>
    </message>
    <message>
        <source>Palettes</source>
        <translation>Paletten</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alles</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Crossfader</source>
        <translation>Crossfader</translation>
    </message>
    <message>
        <source>Upwards only</source>
        <translation>Nur aufwärts</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>Beide Richtungen</translation>
    </message>
    <message>
        <source>DMX Output</source>
        <translation>DMX-Ausgang</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximal</translation>
    </message>
    <message>
        <source>Fast</source>
        <translation>Schnell</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Slow</source>
        <translation>Langsam</translation>
    </message>
    <message>
        <source>DMX Input</source>
        <translation>DMX-Eingang</translation>
    </message>
    <message>
        <source>Merge with output</source>
        <translation>Mit Ausgang mischen</translation>
    </message>
    <message>
        <source>On fader 01/01</source>
        <translation>Auf Fader 01/01</translation>
    </message>
    <message>
        <source>DMX Backup</source>
        <translation>DMX-Backup</translation>
    </message>
    <message>
        <source>Bump = Flash</source>
        <translation>Bump = Flash</translation>
    </message>
    <message>
        <source>Bump = Enable</source>
        <translation>Bump = Freigabe</translation>
    </message>
    <message>
        <source>MIDI</source>
        <translation>MIDI</translation>
    </message>
    <message>
        <source>MIDI channel</source>
        <translation>MIDI-Kanal</translation>
    </message>
    <message>
        <source>MIDI (music) on</source>
        <translation>MIDI (Musik) an</translation>
    </message>
    <message>
        <source>MIDI MSC i.d.</source>
        <translation>MIDI-MSC-ID</translation>
    </message>
    <message>
        <source>MIDI MSC on</source>
        <translation>MIDI MSC an</translation>
    </message>
    <message>
        <source>Default times</source>
        <translation>Standardzeiten</translation>
    </message>
    <message>
        <source>Up fade</source>
        <translation>Einblenden</translation>
    </message>
    <message>
        <source>Down fade</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Wait</source>
        <translation>Warten</translation>
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
        <translation>Benutzermodus</translation>
    </message>
    <message>
        <source>Full control</source>
        <translation>Volle Kontrolle</translation>
    </message>
    <message>
        <source>Control &amp; Playback</source>
        <translation>Kontrolle &amp; Wiedergabe</translation>
    </message>
    <message>
        <source>Playback only</source>
        <translation>Nur Wiedergabe</translation>
    </message>
    <message>
        <source>Lumidesk version</source>
        <translation>Lumidesk-Version</translation>
    </message>
    <message>
        <source>DLL version</source>
        <translation>DLL-Version</translation>
    </message>
    <message>
        <source>Library version</source>
        <translation>Bibliotheksversion</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Pan / Tilt modify</source>
        <translation>Pan / Tilt ändern</translation>
    </message>
    <message>
        <source>Device#</source>
        <translation>Gerät#</translation>
    </message>
    <message>
        <source>Invert Pan</source>
        <translation>Pan umkehren</translation>
    </message>
    <message>
        <source>Invert Tilt</source>
        <translation>Tilt umkehren</translation>
    </message>
    <message>
        <source>Swap P/T</source>
        <translation>P/T tauschen</translation>
    </message>
    <message>
        <source>Open showfile</source>
        <translation>Showdatei öffnen</translation>
    </message>
    <message>
        <source>Show files (*.asc)</source>
        <translation>Showdateien (*.asc)</translation>
    </message>
    <message>
        <source>This show file originates from another type of console and cannot be read!</source>
        <translation>Diese Showdatei stammt von einem anderen Konsolentyp und kann nicht gelesen werden!</translation>
    </message>
    <message>
        <source>There was an error reading the show file!</source>
        <translation>Beim Lesen der Showdatei ist ein Fehler aufgetreten!</translation>
    </message>
    <message>
        <source>Save showfile</source>
        <translation>Showdatei speichern</translation>
    </message>
    <message>
        <source>New show</source>
        <translation>Neue Show</translation>
    </message>
    <message>
        <source>This will erase all data, OK to proceed?</source>
        <translation>Dadurch werden alle Daten gelöscht. Fortfahren?</translation>
    </message>
    <message>
        <source>Erase memories</source>
        <translation>Speicher löschen</translation>
    </message>
    <message>
        <source>This will erase all memories, OK to proceed?</source>
        <translation>Dadurch werden alle Speicher gelöscht. Fortfahren?</translation>
    </message>
    <message>
        <source>Erase sequences</source>
        <translation>Sequenzen löschen</translation>
    </message>
    <message>
        <source>This will erase all sequences, OK to proceed?</source>
        <translation>Dadurch werden alle Sequenzen gelöscht. Fortfahren?</translation>
    </message>
    <message>
        <source>Erase stack</source>
        <translation>Stack löschen</translation>
    </message>
    <message>
        <source>This will erase all data in the stack, OK to proceed?</source>
        <translation>Dadurch werden alle Daten im Stack gelöscht. Fortfahren?</translation>
    </message>
    <message>
        <source>Erase palettes</source>
        <translation>Paletten löschen</translation>
    </message>
    <message>
        <source>This will erase all palettes, OK to proceed?</source>
        <translation>Dadurch werden alle Paletten gelöscht. Fortfahren?</translation>
    </message>
    <message>
        <source>Erase all</source>
        <translation>Alles löschen</translation>
    </message>
    <message>
        <source>The show could not be saved to %1!</source>
        <translation>Die Show konnte nicht unter %1 gespeichert werden!</translation>
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
        <translation>Start</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Remaining time</source>
        <translation>Restzeit</translation>
    </message>
    <message>
        <source>UP</source>
        <translation>AUF</translation>
    </message>
    <message>
        <source>DOWN</source>
        <translation>AB</translation>
    </message>
    <message>
        <source>WAIT</source>
        <translation>WARTEN</translation>
    </message>
    <message>
        <source>RATE</source>
        <translation>TEMPO</translation>
    </message>
    <message>
        <source>FADE</source>
        <translation>FADE</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Change language</source>
        <translation>Sprache ändern</translation>
    </message>
    <message>
        <source>You must restart Lumidesk in order for the language change to take effect!</source>
        <translation>Sie müssen Lumidesk neu starten, damit die Sprachänderung wirksam wird!</translation>
    </message>
</context>
<context>
    <name>movesequencestepdialogClass</name>
    <message>
        <source>Move sequence step</source>
        <translation>Sequenzschritt verschieben</translation>
    </message>
    <message>
        <source>Cue number</source>
        <translation>Cue-Nummer</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
</TS>
