<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja">
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>Select All</source>
        <translation>すべて選択</translation>
    </message>
</context>
</TS>
