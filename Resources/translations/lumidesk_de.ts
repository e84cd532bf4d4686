<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
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
</TS>
