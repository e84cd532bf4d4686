<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
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
