<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>Lumidesk</name>
    <message>
        <source>Critical error</source>
        <translation>Errore critico (catalogo accanto al programma)</translation>
    </message>
</context>
</TS>
