<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>NuBo Setting Tool</source>
        <translation>NuBo Setting Tool</translation>
    </message>
    <message>
        <source>United States</source>
        <translation>United States</translation>
    </message>
    <message>
        <source>Japan</source>
        <translation>Japan</translation>
    </message>
    <message>
        <source>Australia</source>
        <translation>Australia</translation>
    </message>
    <message>
        <source>Europe</source>
        <translation>Europe</translation>
    </message>
</context>
<context>
    <name>ClCaptionBar</name>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
</context>
<context>
    <name>ClDialogBase</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>ClLinkCheck</name>
    <message>
        <source>Linked</source>
        <translation>Linked</translation>
    </message>
</context>
<context>
    <name>ClMessageBox</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>ClWidgetBase</name>
    <message>
        <source>Timeout error, please reset</source>
        <translation>Timeout error, please reset</translation>
    </message>
    <message>
        <source>Parameter setting failed</source>
        <translation>Parameter setting failed</translation>
    </message>
    <message>
        <source>Command error, version up</source>
        <translation>Command error, version up</translation>
    </message>
    <message>
        <source>Exec failed, unknown error</source>
        <translation>Exec failed, unknown error</translation>
    </message>
</context>
<context>
    <name>ClWidgetSelectMode</name>
    <message>
        <source>Camera state</source>
        <translation>Camera state</translation>
    </message>
    <message>
        <source>Network setting</source>
        <translation>Network setting</translation>
    </message>
    <message>
        <source>Basic setting</source>
        <translation>Basic setting</translation>
    </message>
    <message>
        <source>Stream setting</source>
        <translation>Stream setting</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Help</translation>
    </message>
</context>
<context>
    <name>ClWidgetNotConnect</name>
    <message>
        <source>Connect camera by USB cable</source>
        <translation>Connect camera by USB cable</translation>
    </message>
</context>
<context>
    <name>ClLabelWifiState</name>
    <message>
        <source>Not link</source>
        <translation>Not link</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Link</translation>
    </message>
    <message>
        <source>Adhoc Link</source>
        <translation>Adhoc Link</translation>
    </message>
</context>
<context>
    <name>ClWidgetCameraState</name>
    <message>
        <source>Battery charge</source>
        <translation>Battery charge</translation>
    </message>
    <message>
        <source>Wi-Fi state</source>
        <translation>Wi-Fi state</translation>
    </message>
    <message>
        <source>Receiver sensitivity</source>
        <translation>Receiver sensitivity</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Channel</translation>
    </message>
    <message>
        <source>SD card</source>
        <translation>SD card</translation>
    </message>
    <message>
        <source>Total capacity</source>
        <translation>Total capacity</translation>
    </message>
    <message>
        <source>Free capacity</source>
        <translation>Free capacity</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Category</translation>
    </message>
    <message>
        <source>%1 Byte</source>
        <translation>%1 Byte</translation>
    </message>
    <message>
        <source> (%1% used)</source>
        <translation> (%1% used)</translation>
    </message>
    <message>
        <source>SD card format</source>
        <translation>SD card format</translation>
    </message>
    <message>
        <source>Initialize settings</source>
        <translation>Initialize settings</translation>
    </message>
    <message>
        <source>Reset NuBo</source>
        <translation>Reset NuBo</translation>
    </message>
    <message>
        <source>All data delete on SD card</source>
        <translation>All data delete on SD card</translation>
    </message>
    <message>
        <source>Initialize all settings</source>
        <translation>Initialize all settings</translation>
    </message>
    <message>
        <source>Reset NuBo and restart</source>
        <translation>Reset NuBo and restart</translation>
    </message>
    <message>
        <source>Completed %1</source>
        <translation>Completed %1</translation>
    </message>
</context>
</TS>
