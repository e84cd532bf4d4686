<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>ConsoleCache</name>
    <message>
        <source>Cue</source>
        <translation>Cue</translation>
    </message>
    <message>
        <source>Focus</source>
        <translation>Focus</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Couleur</translation>
    </message>
    <message>
        <source>Beam</source>
        <translation>Faisceau</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Utilisateur</translation>
    </message>
</context>
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
    <name>DMXView</name>
    <message>
        <source>Universe</source>
        <translation>Univers</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Sortie</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>DMX Outputs</source>
        <translation>Sorties DMX</translation>
    </message>
    <message>
        <source>DMX In/Out</source>
        <translation>DMX Ent/Sor</translation>
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
        <translation>Pan fin</translation>
    </message>
    <message>
        <source>Tilt Fine</source>
        <translation>Tilt fin</translation>
    </message>
    <message>
        <source>Red/Cyan</source>
        <translation>Rouge/Cyan</translation>
    </message>
    <message>
        <source>Green/Mag</source>
        <translation>Vert/Mag</translation>
    </message>
    <message>
        <source>Blue/Yellow</source>
        <translation>Bleu/Jaune</translation>
    </message>
    <message>
        <source>Color 1</source>
        <translation>Couleur 1</translation>
    </message>
    <message>
        <source>Color 2</source>
        <translation>Couleur 2</translation>
    </message>
    <message>
        <source>Color Temp</source>
        <translation>Temp coul</translation>
    </message>
    <message>
        <source>Color Effect</source>
        <translation>Effet coul</translation>
    </message>
    <message>
        <source>Shutter</source>
        <translation>Obturateur</translation>
    </message>
    <message>
        <source>Prism</source>
        <translation>Prisme</translation>
    </message>
    <message>
        <source>Beam 2</source>
        <translation>Faisceau 2</translation>
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
        <translation>Gobo 1 Mode</translation>
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
        <translation>Gobo 2 Mode</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Edge</source>
        <translation>Netteté</translation>
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
        <translation>Util 1</translation>
    </message>
    <message>
        <source>User 2</source>
        <translation>Util 2</translation>
    </message>
    <message>
        <source>User 3</source>
        <translation>Util 3</translation>
    </message>
    <message>
        <source>User 4</source>
        <translation>Util 4</translation>
    </message>
    <message>
        <source>User 5</source>
        <translation>Util 5</translation>
    </message>
    <message>
        <source>User 6</source>
        <translation>Util 6</translation>
    </message>
    <message>
        <source>User 7</source>
        <translation>Util 7</translation>
    </message>
    <message>
        <source>User 8</source>
        <translation>Util 8</translation>
    </message>
    <message>
        <source>Effect 1</source>
        <translation>Effet 1</translation>
    </message>
    <message>
        <source>Effect 1 Mode</source>
        <translation>Effet 1 Mode</translation>
    </message>
    <message>
        <source>Effect 2</source>
        <translation>Effet 2</translation>
    </message>
    <message>
        <source>Effect 2 Mode</source>
        <translation>Effet 2 Mode</translation>
    </message>
    <message>
        <source>Blade 1A</source>
        <translation>Couteau 1A</translation>
    </message>
    <message>
        <source>Blade 1B</source>
        <translation>Couteau 1B</translation>
    </message>
    <message>
        <source>Blade 2A</source>
        <translation>Couteau 2A</translation>
    </message>
    <message>
        <source>Blade 2B</source>
        <translation>Couteau 2B</translation>
    </message>
    <message>
        <source>Blade 3A</source>
        <translation>Couteau 3A</translation>
    </message>
    <message>
        <source>Blade 3B</source>
        <translation>Couteau 3B</translation>
    </message>
    <message>
        <source>Blade 4A</source>
        <translation>Couteau 4A</translation>
    </message>
    <message>
        <source>Blade 4B</source>
        <translation>Couteau 4B</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Rotation</translation>
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
        <translation>Non annulé : la console l'a modifié depuis</translation>
    </message>
    <message>
        <source>Not redone: the console has changed it since</source>
        <translation>Non rétabli : la console l'a modifié depuis</translation>
    </message>
</context>
<context>
    <name>EffectsView</name>
    <message>
        <source>Shape
Effects</source>
        <translation>Effets
de forme</translation>
    </message>
    <message>
        <source>Linear
Effects</source>
        <translation>Effets
linéaires</translation>
    </message>
    <message>
        <source>Color
Effects</source>
        <translation>Effets
de couleur</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Vitesse</translation>
    </message>
    <message>
        <source>Chroma</source>
        <translation>Chroma</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>Amplitude</translation>
    </message>
    <message>
        <source>Aspect</source>
        <translation>Aspect</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Rotation</translation>
    </message>
    <message>
        <source>Base</source>
        <translation>Base</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Plage</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>Style</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Avant</translation>
    </message>
    <message>
        <source>Backward</source>
        <translation>Arrière</translation>
    </message>
    <message>
        <source>Bounce</source>
        <translation>Aller-retour</translation>
    </message>
    <message>
        <source>Effects Edit</source>
        <translation>Édition des effets</translation>
    </message>
    <message>
        <source>Shape effects</source>
        <translation>Effets de forme</translation>
    </message>
    <message>
        <source>Linear effects</source>
        <translation>Effets linéaires</translation>
    </message>
    <message>
        <source>Color effects</source>
        <translation>Effets de couleur</translation>
    </message>
    <message>
        <source>SELECT</source>
        <translation>SÉLECTION</translation>
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
    <name>GroupsView</name>
    <message>
        <source>GROUP</source>
        <translation>GROUPE</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Groupes</translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation>APPAREIL</translation>
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
    <name>MemoriesView</name>
    <message>
        <source>Mem Edit</source>
        <translation>Édit. mém.</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>Mémoire</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Page</translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>(vide)</translation>
    </message>
    <message>
        <source>Ch %1-%2</source>
        <translation>Circ %1-%2</translation>
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
        <translation>INT APP</translation>
    </message>
</context>
<context>
    <name>OutputView</name>
    <message>
        <source>Live</source>
        <translation>Direct</translation>
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
        <translation>INT APP</translation>
    </message>
    <message>
        <source>Set palette</source>
        <translation>Appliquer palette</translation>
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
    <name>PaletteMenu</name>
    <message>
        <source>Set palette</source>
        <translation>Appliquer la palette</translation>
    </message>
</context>
<context>
    <name>PalettesView</name>
    <message>
        <source>Palettes</source>
        <translation>Palettes</translation>
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
        <translation>PALETTE COULEUR</translation>
    </message>
    <message>
        <source>BEAM PALETTE</source>
        <translation>PALETTE FAISCEAU</translation>
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
        <translation>Repatcher les appareils</translation>
    </message>
    <message>
        <source>Could not repatch the selected devices as they would not fit within the universe!</source>
        <translation>Impossible de repatcher les appareils sélectionnés : ils ne tiendraient pas dans l'univers !</translation>
    </message>
    <message>
        <source>missing personalities</source>
        <translation>personnalités manquantes</translation>
    </message>
    <message>
        <source>channels</source>
        <translation>canaux</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Sortie</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Sorties</translation>
    </message>
    <message>
        <source>Unpatched</source>
        <translation>Non patché</translation>
    </message>
    <message>
        <source>Universe</source>
        <translation>Univers</translation>
    </message>
    <message>
        <source>Un-patch</source>
        <translation>Dépatcher</translation>
    </message>
    <message>
        <source>On level</source>
        <translation>Niveau actif</translation>
    </message>
    <message>
        <source>Button mode</source>
        <translation>Mode du bouton</translation>
    </message>
    <message>
        <source>Affected by GM</source>
        <translation>Soumis au GM</translation>
    </message>
    <message>
        <source>LATCH</source>
        <translation>MAINTIEN</translation>
    </message>
    <message>
        <source>BUMP</source>
        <translation>FLASH</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>OUI</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>NON</translation>
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
    <name>SystemView</name>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nouveau</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Enregistrer sous</translation>
    </message>
    <message>
        <source>Memories</source>
        <translation>Mémoires</translation>
    </message>
    <message>
        <source>Sequences</source>
        <translation>Séquences</translation>
    </message>
    <message>
        <source>Stack</source>
        <translation>Pile</translation>
    </message>
    <message>
        <source>Palettes</source>
        <translation>Palettes</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Tout</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Effacer</translation>
    </message>
    <message>
        <source>Crossfader</source>
        <translation>Crossfader</translation>
    </message>
    <message>
        <source>Upwards only</source>
        <translation>Vers le haut seulement</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>Dans les deux sens</translation>
    </message>
    <message>
        <source>DMX Output</source>
        <translation>Sortie DMX</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximale</translation>
    </message>
    <message>
        <source>Fast</source>
        <translation>Rapide</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Moyenne</translation>
    </message>
    <message>
        <source>Slow</source>
        <translation>Lente</translation>
    </message>
    <message>
        <source>DMX Input</source>
        <translation>Entrée DMX</translation>
    </message>
    <message>
        <source>Merge with output</source>
        <translation>Fusionner avec la sortie</translation>
    </message>
    <message>
        <source>On fader 01/01</source>
        <translation>Sur le fader 01/01</translation>
    </message>
    <message>
        <source>DMX Backup</source>
        <translation>Secours DMX</translation>
    </message>
    <message>
        <source>Bump = Flash</source>
        <translation>Bump = Flash</translation>
    </message>
    <message>
        <source>Bump = Enable</source>
        <translation>Bump = Activer</translation>
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
        <translation>MIDI (musique) actif</translation>
    </message>
    <message>
        <source>MIDI MSC i.d.</source>
        <translation>ID MIDI MSC</translation>
    </message>
    <message>
        <source>MIDI MSC on</source>
        <translation>MIDI MSC actif</translation>
    </message>
    <message>
        <source>Default times</source>
        <translation>Temps par défaut</translation>
    </message>
    <message>
        <source>Up fade</source>
        <translation>Montée</translation>
    </message>
    <message>
        <source>Down fade</source>
        <translation>Descente</translation>
    </message>
    <message>
        <source>Wait</source>
        <translation>Attente</translation>
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
        <translation>Mode utilisateur</translation>
    </message>
    <message>
        <source>Full control</source>
        <translation>Contrôle complet</translation>
    </message>
    <message>
        <source>Control &amp; Playback</source>
        <translation>Contrôle et restitution</translation>
    </message>
    <message>
        <source>Playback only</source>
        <translation>Restitution seulement</translation>
    </message>
    <message>
        <source>Lumidesk version</source>
        <translation>Version Lumidesk</translation>
    </message>
    <message>
        <source>DLL version</source>
        <translation>Version DLL</translation>
    </message>
    <message>
        <source>Library version</source>
        <translation>Version bibliothèque</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Système</translation>
    </message>
    <message>
        <source>Pan / Tilt modify</source>
        <translation>Modifier pan / tilt</translation>
    </message>
    <message>
        <source>Device#</source>
        <translation>Appareil#</translation>
    </message>
    <message>
        <source>Invert Pan</source>
        <translation>Inverser pan</translation>
    </message>
    <message>
        <source>Invert Tilt</source>
        <translation>Inverser tilt</translation>
    </message>
    <message>
        <source>Swap P/T</source>
        <translation>Échanger P/T</translation>
    </message>
    <message>
        <source>Open showfile</source>
        <translation>Ouvrir le fichier de spectacle</translation>
    </message>
    <message>
        <source>Show files (*.asc)</source>
        <translation>Fichiers de spectacle (*.asc)</translation>
    </message>
    <message>
        <source>This show file originates from another type of console and cannot be read!</source>
        <translation>Ce fichier de spectacle provient d'un autre type de console et ne peut pas être lu !</translation>
    </message>
    <message>
        <source>There was an error reading the show file!</source>
        <translation>Une erreur s'est produite à la lecture du fichier de spectacle !</translation>
    </message>
    <message>
        <source>Save showfile</source>
        <translation>Enregistrer le fichier de spectacle</translation>
    </message>
    <message>
        <source>New show</source>
        <translation>Nouveau spectacle</translation>
    </message>
    <message>
        <source>This will erase all data, OK to proceed?</source>
        <translation>Toutes les données seront effacées. Continuer ?</translation>
    </message>
    <message>
        <source>Erase memories</source>
        <translation>Effacer les mémoires</translation>
    </message>
    <message>
        <source>This will erase all memories, OK to proceed?</source>
        <translation>Toutes les mémoires seront effacées. Continuer ?</translation>
    </message>
    <message>
        <source>Erase sequences</source>
        <translation>Effacer les séquences</translation>
    </message>
    <message>
        <source>This will erase all sequences, OK to proceed?</source>
        <translation>Toutes les séquences seront effacées. Continuer ?</translation>
    </message>
    <message>
        <source>Erase stack</source>
        <translation>Effacer la pile</translation>
    </message>
    <message>
        <source>This will erase all data in the stack, OK to proceed?</source>
        <translation>Toutes les données de la pile seront effacées. Continuer ?</translation>
    </message>
    <message>
        <source>Erase palettes</source>
        <translation>Effacer les palettes</translation>
    </message>
    <message>
        <source>This will erase all palettes, OK to proceed?</source>
        <translation>Toutes les palettes seront effacées. Continuer ?</translation>
    </message>
    <message>
        <source>Erase all</source>
        <translation>Tout effacer</translation>
    </message>
    <message>
        <source>The show could not be saved to %1!</source>
        <translation>Le spectacle n'a pas pu être enregistré dans %1 !</translation>
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
