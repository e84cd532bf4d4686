<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Cuelist</name>
    <message>
        <source>Step</source>
        <translation>Pas</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>Contenu</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Montée</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Descente</translation>
    </message>
    <message>
        <source>Wait</source>
        <translation>Attente</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Déplacer</translation>
    </message>
    <message>
        <source>Affects</source>
        <translation>Affecte</translation>
    </message>
    <message>
        <source>NEXT</source>
        <translation>NEXT</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Boucle</translation>
    </message>
    <message>
        <source>One Shot</source>
        <translation>Une fois</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuel</translation>
    </message>
    <message>
        <source>LIVE</source>
        <translation>LIVE</translation>
    </message>
    <message>
        <source>dark</source>
        <translation>noir</translation>
    </message>
</context>
<context>
    <name>Cuematrix</name>
    <message>
        <source>[empty]</source>
        <translation>[vide]</translation>
    </message>
    <message>
        <source>Insert step</source>
        <translation>Insérer un pas</translation>
    </message>
    <message>
        <source>No space to insert a cue here</source>
        <translation>Pas de place pour insérer une cue ici</translation>
    </message>
    <message>
        <source>Delete step</source>
        <translation>Supprimer le pas</translation>
    </message>
    <message>
        <source>Are you sure?</source>
        <translation>Êtes-vous sûr ?</translation>
    </message>
    <message>
        <source>Move step</source>
        <translation>Déplacer le pas</translation>
    </message>
    <message>
        <source>No space to move a cue here</source>
        <translation>Pas de place pour déplacer une cue ici</translation>
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
        <translation>MÉM</translation>
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
        <translation>FLASHS</translation>
    </message>
    <message>
        <source>PAGE</source>
        <translation>PAGE</translation>
    </message>
</context>
<context>
    <name>InsertSequenceStepDialogClass</name>
    <message>
        <source>Insert sequence step</source>
        <translation>Insérer un pas de séquence</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Circuit</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>Mémoire</translation>
    </message>
    <message>
        <source>Direct cue</source>
        <translation>Cue directe</translation>
    </message>
    <message>
        <source>Cue number</source>
        <translation>Numéro de cue</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Insérer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
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
        <translation>Sélectionnez le type de console :</translation>
    </message>
    <message>
        <source>&lt;p&gt;The latest console and Lumidesk software is available at &lt;a href="https://www.glowcraft-lighting.com/software"&gt;www.glowcraft-lighting.com/software&lt;/a&gt;.&lt;/p&gt;&lt;p style="color:#808080"&gt;Glowcraft, Alder, Birch, Cedar and Maple are trademarks of Glowcraft Lighting.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Les derniers logiciels de la console et de Lumidesk sont disponibles sur &lt;a href="https://www.glowcraft-lighting.com/software"&gt;www.glowcraft-lighting.com/software&lt;/a&gt;.&lt;/p&gt;&lt;p style="color:#808080"&gt;Glowcraft, Alder, Birch, Cedar et Maple sont des marques de Glowcraft Lighting.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Run Lumidesk with a %1 console</source>
        <translation>Utiliser Lumidesk avec une console %1</translation>
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
        <translation>Restitution</translation>
    </message>
</context>
<context>
    <name>Lumidesk</name>
    <message>
        <source>Connection error</source>
        <translation>Erreur de connexion</translation>
    </message>
    <message>
        <source>The console software version does not match the Lumidesk software version.
Please update one or both sides to a matching version.</source>
        <translation>La version du logiciel de la console ne correspond pas à celle de Lumidesk.
Veuillez mettre à jour l'un des côtés ou les deux vers des versions correspondantes.</translation>
    </message>
    <message>
        <source>Critical error</source>
        <translation>Erreur critique</translation>
    </message>
    <message>
        <source>Lumidesk failed to load the console selected!</source>
        <translation>Lumidesk n'a pas pu charger la console sélectionnée !</translation>
    </message>
</context>
<context>
    <name>MLButtonRow</name>
    <message>
        <source>FOCUS</source>
        <translation>FOCUS</translation>
    </message>
    <message>
        <source>COLOR</source>
        <translation>COULEUR</translation>
    </message>
    <message>
        <source>BEAM</source>
        <translation>FAISCEAU</translation>
    </message>
    <message>
        <source>GROUP</source>
        <translation>GROUPE</translation>
    </message>
    <message>
        <source>DEV SEL</source>
        <translation>SÉL APP</translation>
    </message>
    <message>
        <source>EFFECT</source>
        <translation>EFFET</translation>
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
        <translation>INT APPAR</translation>
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
        <translation>MÉM</translation>
    </message>
    <message>
        <source>INT ONLY</source>
        <translation>INT SEUL</translation>
    </message>
    <message>
        <source>GO MODE</source>
        <translation>MODE GO</translation>
    </message>
    <message>
        <source>SELECT MODE</source>
        <translation>MODE SÉLECTION</translation>
    </message>
    <message>
        <source>FADER MODE</source>
        <translation>MODE FADERS</translation>
    </message>
    <message>
        <source>MEMS MODE</source>
        <translation>MODE MÉM</translation>
    </message>
    <message>
        <source>PAGE</source>
        <translation>PAGE</translation>
    </message>
</context>
<context>
    <name>MainFrame</name>
    <message>
        <source>Connection error</source>
        <translation>Erreur de connexion</translation>
    </message>
    <message>
        <source>Exit Lumidesk</source>
        <translation>Quitter Lumidesk</translation>
    </message>
    <message>
        <source>Save showfile</source>
        <translation>Enregistrer le fichier de spectacle</translation>
    </message>
    <message>
        <source>Show files (*.asc)</source>
        <translation>Fichiers de spectacle (*.asc)</translation>
    </message>
    <message>
        <source>The Glowcraft console must be running in Normal mode in order to connect to Lumidesk.</source>
        <translation>La console Glowcraft doit fonctionner en mode Normal pour se connecter à Lumidesk.</translation>
    </message>
    <message>
        <source>The console software version does not match the Lumidesk software version.
Please update one or both sides to a matching version.</source>
        <translation>La version du logiciel de la console ne correspond pas à celle de Lumidesk.
Veuillez mettre à jour l'un des côtés ou les deux vers des versions correspondantes.</translation>
    </message>
    <message>
        <source>Would you like to save your data first?</source>
        <translation>Voulez-vous d'abord enregistrer vos données ?</translation>
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
        <translation>PAGE</translation>
    </message>
</context>
<context>
    <name>PagesView</name>
    <message>
        <source>Pages</source>
        <translation>Pages</translation>
    </message>
    <message>
        <source>Pages Hi</source>
        <translation>Pages Hi</translation>
    </message>
    <message>
        <source>Pages Lo</source>
        <translation>Pages Lo</translation>
    </message>
</context>
<context>
    <name>SequencesView</name>
    <message>
        <source>Seq/Stack edit</source>
        <translation>Édition Séq/Stack</translation>
    </message>
    <message>
        <source>stack</source>
        <translation>stack</translation>
    </message>
    <message>
        <source>seq</source>
        <translation>séq</translation>
    </message>
    <message>
        <source>Stack</source>
        <translation>Stack</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Page</translation>
    </message>
    <message>
        <source>Sequence</source>
        <translation>Séquence</translation>
    </message>
    <message>
        <source>Stack/Seq Edit</source>
        <translation>Édition Stack/Séq</translation>
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
        <translation>Début</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Fin</translation>
    </message>
    <message>
        <source>Remaining time</source>
        <translation>Temps restant</translation>
    </message>
    <message>
        <source>UP</source>
        <translation>MONTÉE</translation>
    </message>
    <message>
        <source>DOWN</source>
        <translation>DESCENTE</translation>
    </message>
    <message>
        <source>WAIT</source>
        <translation>ATTENTE</translation>
    </message>
    <message>
        <source>RATE</source>
        <translation>VITESSE</translation>
    </message>
    <message>
        <source>FADE</source>
        <translation>FONDU</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Change language</source>
        <translation>Changer de langue</translation>
    </message>
    <message>
        <source>You must restart Lumidesk in order for the language change to take effect!</source>
        <translation>Vous devez redémarrer Lumidesk pour que le changement de langue prenne effet !</translation>
    </message>
</context>
<context>
    <name>movesequencestepdialogClass</name>
    <message>
        <source>Move sequence step</source>
        <translation>Déplacer un pas de séquence</translation>
    </message>
    <message>
        <source>Cue number</source>
        <translation>Numéro de cue</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Déplacer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
</TS>
