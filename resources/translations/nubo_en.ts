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
    <name>ClWidgetHelp</name>
    <message>
        <source>Setting Application</source>
        <translation>Setting Application</translation>
    </message>
    <message>
        <source>NuBoSettingTool version</source>
        <translation>NuBoSettingTool version</translation>
    </message>
    <message>
        <source>NuBo firmware version</source>
        <translation>NuBo firmware version</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Serial number</translation>
    </message>
    <message>
        <source>MAC address</source>
        <translation>MAC address</translation>
    </message>
    <message>
        <source>Create day</source>
        <translation>Create day</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Country</translation>
    </message>
    <message>
        <source>yyyy/MM/dd</source>
        <translation>yyyy/MM/dd</translation>
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
    <name>ClWidgetStreamSetting</name>
    <message>
        <source>%1 setting</source>
        <translation>%1 setting</translation>
    </message>
    <message>
        <source>Rec</source>
        <translation>Rec</translation>
    </message>
    <message>
        <source>LiveView</source>
        <translation>LiveView</translation>
    </message>
    <message>
        <source>Set failed for recording</source>
        <translation>Set failed for recording</translation>
    </message>
    <message>
        <source>Set the image quality at the time of %1</source>
        <translation>Set the image quality at the time of %1</translation>
    </message>
    <message>
        <source>Set the fps at the time of %1</source>
        <translation>Set the fps at the time of %1</translation>
    </message>
    <message>
        <source>Full HD(1920x1080)</source>
        <translation>Full HD(1920x1080)</translation>
    </message>
    <message>
        <source>HD(1280x720)</source>
        <translation>HD(1280x720)</translation>
    </message>
    <message>
        <source>Economy(640x480)</source>
        <translation>Economy(640x480)</translation>
    </message>
    <message>
        <source>Fine(800x480)</source>
        <translation>Fine(800x480)</translation>
    </message>
    <message>
        <source>Standard(320x240)</source>
        <translation>Standard(320x240)</translation>
    </message>
    <message>
        <source>30 sheets(30fps)</source>
        <translation>30 sheets(30fps)</translation>
    </message>
    <message>
        <source>15 sheets(15fps)</source>
        <translation>15 sheets(15fps)</translation>
    </message>
    <message>
        <source>10 sheets(10fps)</source>
        <translation>10 sheets(10fps)</translation>
    </message>
    <message>
        <source>6 sheets(6fps)</source>
        <translation>6 sheets(6fps)</translation>
    </message>
    <message>
        <source>1 sheets(1fps)</source>
        <translation>1 sheets(1fps)</translation>
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
