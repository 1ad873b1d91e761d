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
    <name>ClDialogAutoPoweroff</name>
    <message>
        <source>Set the time of auto power off</source>
        <translation>Set the time of auto power off</translation>
    </message>
    <message>
        <source>Not auto power off</source>
        <translation>Not auto power off</translation>
    </message>
    <message>
        <source>Time of auto power off</source>
        <translation>Time of auto power off</translation>
    </message>
</context>
<context>
    <name>ClDialogAutoWifiOff</name>
    <message>
        <source>Set the time of auto Wi-Fi off</source>
        <translation>Set the time of auto Wi-Fi off</translation>
    </message>
    <message>
        <source>Not auto Wi-Fi off</source>
        <translation>Not auto Wi-Fi off</translation>
    </message>
    <message>
        <source>Time of auto Wi-Fi off</source>
        <translation>Time of auto Wi-Fi off</translation>
    </message>
    <message>
        <source>Minutes</source>
        <translation>Minutes</translation>
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
    <name>ClDialogCalendar</name>
    <message>
        <source>Previous month</source>
        <translation>Previous month</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>Next month</translation>
    </message>
</context>
<context>
    <name>ClDialogGps</name>
    <message>
        <source>Set the GPS settings of NuBo</source>
        <translation>Set the GPS settings of NuBo</translation>
    </message>
    <message>
        <source>Use GPS</source>
        <translation>Use GPS</translation>
    </message>
    <message>
        <source>Not use GPS</source>
        <translation>Not use GPS</translation>
    </message>
    <message>
        <source>Set to save GPS log</source>
        <translation>Set to save GPS log</translation>
    </message>
    <message>
        <source>Save logs</source>
        <translation>Save logs</translation>
    </message>
    <message>
        <source>Not save logs</source>
        <translation>Not save logs</translation>
    </message>
    <message>
        <source>Set the format of GPS log</source>
        <translation>Set the format of GPS log</translation>
    </message>
    <message>
        <source>GGA+RMC</source>
        <translation>GGA+RMC</translation>
    </message>
    <message>
        <source>GGA+GLL+GSA+GSV+RMC+VTG+ZDA</source>
        <translation>GGA+GLL+GSA+GSV+RMC+VTG+ZDA</translation>
    </message>
    <message>
        <source>Set to auto adjust time from GPS info</source>
        <translation>Set to auto adjust time from GPS info</translation>
    </message>
    <message>
        <source>Adjust time</source>
        <translation>Adjust time</translation>
    </message>
    <message>
        <source>Not adjust time</source>
        <translation>Not adjust time</translation>
    </message>
</context>
<context>
    <name>ClDialogImageQuarity</name>
    <message>
        <source>Setting contrast</source>
        <translation>Setting contrast</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Light</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dark</translation>
    </message>
</context>
<context>
    <name>ClDialogLed</name>
    <message>
        <source>Can set to light led on power on</source>
        <translation>Can set to light led on power on</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Light</translation>
    </message>
    <message>
        <source>Not light</source>
        <translation>Not light</translation>
    </message>
</context>
<context>
    <name>ClDialogTimezone</name>
    <message>
        <source>Eniwetok/Kwajalein
GMT-12:00</source>
        <translation>Eniwetok/Kwajalein
GMT-12:00</translation>
    </message>
    <message>
        <source>Midway Island/Samoa
GMT-11:00</source>
        <translation>Midway Island/Samoa
GMT-11:00</translation>
    </message>
    <message>
        <source>Hawaii
GMT-10:00</source>
        <translation>Hawaii
GMT-10:00</translation>
    </message>
    <message>
        <source>Alaska
GMT-9:00</source>
        <translation>Alaska
GMT-9:00</translation>
    </message>
    <message>
        <source>Pacific STD Time
GMT-8:00</source>
        <translation>Pacific STD Time
GMT-8:00</translation>
    </message>
    <message>
        <source>Mountain STD Time
GMT-7:00</source>
        <translation>Mountain STD Time
GMT-7:00</translation>
    </message>
    <message>
        <source>Central STD Time
GMT-6:00</source>
        <translation>Central STD Time
GMT-6:00</translation>
    </message>
    <message>
        <source>Eastern STD Time
GMT-5:00</source>
        <translation>Eastern STD Time
GMT-5:00</translation>
    </message>
    <message>
        <source>Atlantic STD Time
GMT-4:00</source>
        <translation>Atlantic STD Time
GMT-4:00</translation>
    </message>
    <message>
        <source>Brasilia/Buenos Aires
GMT-3:00</source>
        <translation>Brasilia/Buenos Aires
GMT-3:00</translation>
    </message>
    <message>
        <source>Central Atlantic
GMT-2:00</source>
        <translation>Central Atlantic
GMT-2:00</translation>
    </message>
    <message>
        <source>Azores Islands
GMT-1:00</source>
        <translation>Azores Islands
GMT-1:00</translation>
    </message>
    <message>
        <source>London/Lisbon
GMT+0:00</source>
        <translation>London/Lisbon
GMT+0:00</translation>
    </message>
    <message>
        <source>Paris/Berlin/Rome
GMT+1:00</source>
        <translation>Paris/Berlin/Rome
GMT+1:00</translation>
    </message>
    <message>
        <source>Athens/Cairo/Helsink
GMT+2:00</source>
        <translation>Athens/Cairo/Helsink
GMT+2:00</translation>
    </message>
    <message>
        <source>Moscow/Baghdad
GMT+3:00</source>
        <translation>Moscow/Baghdad
GMT+3:00</translation>
    </message>
    <message>
        <source>Abu Dhabi
GMT+4:00</source>
        <translation>Abu Dhabi
GMT+4:00</translation>
    </message>
    <message>
        <source>Islamabad/Karachi
GMT+5:00</source>
        <translation>Islamabad/Karachi
GMT+5:00</translation>
    </message>
    <message>
        <source>Dhaka/Novosibirsk
GMT+6:00</source>
        <translation>Dhaka/Novosibirsk
GMT+6:00</translation>
    </message>
    <message>
        <source>Bangkok/Hanoi
GMT+7:00</source>
        <translation>Bangkok/Hanoi
GMT+7:00</translation>
    </message>
    <message>
        <source>Beijing/Singapore
GMT+8:00</source>
        <translation>Beijing/Singapore
GMT+8:00</translation>
    </message>
    <message>
        <source>Tokyo/Seoul/Yakutsk
GMT+9:00</source>
        <translation>Tokyo/Seoul/Yakutsk
GMT+9:00</translation>
    </message>
    <message>
        <source>Melbourne/Vladivostok
GMT+10:00</source>
        <translation>Melbourne/Vladivostok
GMT+10:00</translation>
    </message>
    <message>
        <source>New Caledonia
GMT+11:00</source>
        <translation>New Caledonia
GMT+11:00</translation>
    </message>
    <message>
        <source>Auckland/Fiji
GMT+12:00</source>
        <translation>Auckland/Fiji
GMT+12:00</translation>
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
    <name>ClTimeRow</name>
    <message>
        <source>Hours</source>
        <translation>Hours</translation>
    </message>
    <message>
        <source>Minutes</source>
        <translation>Minutes</translation>
    </message>
    <message>
        <source>Seconds</source>
        <translation>Seconds</translation>
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
    <name>ClWidgetBasicSetting</name>
    <message>
        <source>Setting camera name</source>
        <translation>Setting camera name</translation>
    </message>
    <message>
        <source>Time setting</source>
        <translation>Time setting</translation>
    </message>
    <message>
        <source>Setting time zone</source>
        <translation>Setting time zone</translation>
    </message>
    <message>
        <source>Setting time</source>
        <translation>Setting time</translation>
    </message>
    <message>
        <source>Wi-Fi setting</source>
        <translation>Wi-Fi setting</translation>
    </message>
    <message>
        <source>Setting auto Wi-Fi off</source>
        <translation>Setting auto Wi-Fi off</translation>
    </message>
    <message>
        <source>Setting Wi-Fi country</source>
        <translation>Setting Wi-Fi country</translation>
    </message>
    <message>
        <source>Setting auto power off</source>
        <translation>Setting auto power off</translation>
    </message>
    <message>
        <source>Setting LED</source>
        <translation>Setting LED</translation>
    </message>
    <message>
        <source>Setting GPS</source>
        <translation>Setting GPS</translation>
    </message>
    <message>
        <source>Setting user authorization</source>
        <translation>Setting user authorization</translation>
    </message>
    <message>
        <source>Setting interval</source>
        <translation>Setting interval</translation>
    </message>
    <message>
        <source>Image quarity</source>
        <translation>Image quarity</translation>
    </message>
    <message>
        <source>Set the favarite camera name</source>
        <translation>Set the favarite camera name</translation>
    </message>
    <message>
        <source>No camera name</source>
        <translation>No camera name</translation>
    </message>
    <message>
        <source>Set the authorization that enhances security</source>
        <translation>Set the authorization that enhances security</translation>
    </message>
    <message>
        <source>Not use authorization</source>
        <translation>Not use authorization</translation>
    </message>
    <message>
        <source>Use authorization</source>
        <translation>Use authorization</translation>
    </message>
    <message>
        <source>Now password</source>
        <translation>Now password</translation>
    </message>
    <message>
        <source>New password</source>
        <translation>New password</translation>
    </message>
    <message>
        <source>Check password</source>
        <translation>Check password</translation>
    </message>
    <message>
        <source>There are not input value</source>
        <translation>There are not input value</translation>
    </message>
    <message>
        <source>Different now password</source>
        <translation>Different now password</translation>
    </message>
    <message>
        <source>Not same password new and check</source>
        <translation>Not same password new and check</translation>
    </message>
    <message>
        <source>Not change password</source>
        <translation>Not change password</translation>
    </message>
    <message>
        <source>Set the interval timer
Use the interval timer that keep capture at a certain interval</source>
        <translation>Set the interval timer
Use the interval timer that keep capture at a certain interval</translation>
    </message>
    <message>
        <source>Use interval timer</source>
        <translation>Use interval timer</translation>
    </message>
    <message>
        <source>Not use interval timer</source>
        <translation>Not use interval timer</translation>
    </message>
    <message>
        <source>Time of interval that captured</source>
        <translation>Time of interval that captured</translation>
    </message>
    <message>
        <source>Time of until start interval timer</source>
        <translation>Time of until start interval timer</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>Year</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Month</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Day</translation>
    </message>
    <message>
        <source>Hour</source>
        <translation>Hour</translation>
    </message>
    <message>
        <source>Minute</source>
        <translation>Minute</translation>
    </message>
    <message>
        <source>Second</source>
        <translation>Second</translation>
    </message>
    <message>
        <source>Invalid year
Set from 2000 to 2100</source>
        <translation>Invalid year
Set from 2000 to 2100</translation>
    </message>
    <message>
        <source>Synchronize PC</source>
        <translation>Synchronize PC</translation>
    </message>
    <message>
        <source>Calendar</source>
        <translation>Calendar</translation>
    </message>
    <message>
        <source>Japan</source>
        <translation>Japan</translation>
    </message>
    <message>
        <source>United States,Canada,Taiwan</source>
        <translation>United States,Canada,Taiwan</translation>
    </message>
    <message>
        <source>EU</source>
        <translation>EU</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Auto</translation>
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
<context>
    <name>ClWidgetNetworkSetting</name>
    <message>
        <source>Infrastructure</source>
        <translation>Infrastructure</translation>
    </message>
    <message>
        <source>Adhoc</source>
        <translation>Adhoc</translation>
    </message>
    <message>
        <source>Connect %1 on startup</source>
        <translation>Connect %1 on startup</translation>
    </message>
    <message>
        <source>AP of selecting</source>
        <translation>AP of selecting</translation>
    </message>
    <message>
        <source>AP search and setting</source>
        <translation>AP search and setting</translation>
    </message>
    <message>
        <source>AP manual setting</source>
        <translation>AP manual setting</translation>
    </message>
    <message>
        <source>Display list that can connect AP</source>
        <translation>Display list that can connect AP</translation>
    </message>
    <message>
        <source>Research</source>
        <translation>Research</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>Decision</source>
        <translation>Decision</translation>
    </message>
    <message>
        <source>Input the encryption key of AP</source>
        <translation>Input the encryption key of AP</translation>
    </message>
    <message>
        <source>Show input</source>
        <translation>Show input</translation>
    </message>
    <message>
        <source>Not input key</source>
        <translation>Not input key</translation>
    </message>
    <message>
        <source>Input SSID to connect AP</source>
        <translation>Input SSID to connect AP</translation>
    </message>
    <message>
        <source>SSID</source>
        <translation>SSID</translation>
    </message>
    <message>
        <source>Set ON when use DHCP server</source>
        <translation>Set ON when use DHCP server</translation>
    </message>
    <message>
        <source>DHCP</source>
        <translation>DHCP</translation>
    </message>
    <message>
        <source>ON</source>
        <translation>ON</translation>
    </message>
    <message>
        <source>OFF</source>
        <translation>OFF</translation>
    </message>
    <message>
        <source>Set the IP Address, Subnetmask and Default Gateway</source>
        <translation>Set the IP Address, Subnetmask and Default Gateway</translation>
    </message>
    <message>
        <source>IP Address</source>
        <translation>IP Address</translation>
    </message>
    <message>
        <source>Subnetmask</source>
        <translation>Subnetmask</translation>
    </message>
    <message>
        <source>Default Gateway</source>
        <translation>Default Gateway</translation>
    </message>
    <message>
        <source>Not valid settings of network</source>
        <translation>Not valid settings of network</translation>
    </message>
    <message>
        <source>SSID of adhoc</source>
        <translation>SSID of adhoc</translation>
    </message>
    <message>
        <source>Encryption key of adhoc</source>
        <translation>Encryption key of adhoc</translation>
    </message>
    <message>
        <source>Set the IP Adderss and Subnetmask when connect by adhoc</source>
        <translation>Set the IP Adderss and Subnetmask when connect by adhoc</translation>
    </message>
</context>
<context>
    <name>ClWidgetRssi</name>
    <message>
        <source>Signal strength %1</source>
        <translation>Signal strength %1</translation>
    </message>
</context>
</TS>
