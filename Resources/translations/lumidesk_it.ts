<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
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
