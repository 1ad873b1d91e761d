<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>ClAppCheck</name>
    <message>
        <source>%1 is already running</source>
        <translation>%1 已在运行</translation>
    </message>
    <message>
        <source>Unable to start because another user is running %1</source>
        <translation>其他用户正在运行 %1，无法启动</translation>
    </message>
    <message>
        <source>Unable to initialize %1</source>
        <translation>无法初始化 %1</translation>
    </message>
</context>
</TS>
