<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
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
</TS>
