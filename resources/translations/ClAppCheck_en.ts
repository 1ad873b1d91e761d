<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en">
<context>
    <name>ClAppCheck</name>
    <message>
        <source>%1 is already running</source>
        <translation>%1 is already running</translation>
    </message>
    <message>
        <source>Unable to start because another user is running %1</source>
        <translation>Unable to start because another user is running %1</translation>
    </message>
    <message>
        <source>Unable to initialize %1</source>
        <translation>Unable to initialize %1</translation>
    </message>
</context>
</TS>
