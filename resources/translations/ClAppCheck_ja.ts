<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>ClAppCheck</name>
    <message>
        <source>%1 is already running</source>
        <translation>%1 はすでに起動しています</translation>
    </message>
    <message>
        <source>Unable to start because another user is running %1</source>
        <translation>ほかのユーザーが %1 を使用しているため、起動できません</translation>
    </message>
    <message>
        <source>Unable to initialize %1</source>
        <translation>%1 を初期化できません</translation>
    </message>
</context>
</TS>
