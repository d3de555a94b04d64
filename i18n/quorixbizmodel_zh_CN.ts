<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>ConfigXml</name>
    <message>
        <source>internal document type definitions are not supported</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an element has too many attributes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>elements are nested too deeply</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Quorix::BizModel::Alphamap</name>
    <message>
        <source>heart</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>star</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>round</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>moon</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ellipse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>diamond</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Quorix::BizModel::Device</name>
    <message>
        <source>[online]   </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[offline]   </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This sub card has been offline, please synchronize the data.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sub card online failed, please restart the device.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The current device does not support this sub card, please replace it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The current slot does not support this sub card, please replace it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hardware data error, please contact technical support.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to obtain the configuration information of this sub card. Please replace it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The configuration information of this sub card is wrong, please replace it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>type is error,type is:%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>interface id is error,interface id is:%1-%2-%3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Synchronizing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Synchronization</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SynchronizeFailure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User Key00%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User Key0%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User Key%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to open MVR.No device configuration information found. The device ModelId is %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to open MVR.The device not support mvr.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to enable MVR.%1 slot cannot find card,please insert card,such as:K_QuadPort.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to enable MVR.%1 slot cannot recognize the current card,please replace the matching card,such as:K_QuadPort.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to enable MVR. Please switch the card or connector capacity and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to enable MVR: The output card is used by the screen.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to close MVR.No device configuration information found. The device ModelId is %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to close MVR.The card is used.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1.There is no selection screen.Please select the screen to save to the preset!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1.The following screen splicing is incomplete,%2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Screen %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>AuxScreen %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MVR %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>,</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>genlock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>AUX</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MVR</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure to delete this %1?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current %1 is used by %2,and the corresponding screen and preset will no longer be displayed after deletion,Are you sure to delete this %1?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Part of the %1 is used, and the corresponding screen and preset will no longer be displayed after deletion,Are you sure to delete all %1?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure to delete all %1?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>AUX Layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This operation will empty the relevant </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>,Do you want to continue?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Quorix::BizModel::DeviceConfigManager</name>
    <message>
        <source>Invalid file path!
%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to open file [%1]!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid [%1] node.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parse error at line %1, column %2:
%3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is not a valid configuration file for device.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is not a valid configuration file of version 1.0 for device.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>DeviceConfig Not Find </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>From %1:%2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Quorix::BizModel::Helper</name>
    <message>
        <source>Off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Limited Range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full Range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>bit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Quorix::BizModel::Input</name>
    <message>
        <source>The bandwidth exceeded the max bandwidth limit. Please try again.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Quorix::BizModel::Interface</name>
    <message>
        <source>Minimum supported bandwidth:%1%2,Current bandwidth:%3%4.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maximum supported bandwidth:%1%2,Current bandwidth:%3%4.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Input %1-%2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Output %1-%2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>AUX %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Quorix::BizModel::InterfaceConfig</name>
    <message>
        <source>Invalid file path!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to open file [%1]!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parse error at line %1, column %2:
%3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This file is not a valid configuration file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This file is not a valid configuration file of version 1.0 .</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid [%1] node.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid [%1] attribute.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The Sub card contains an invalid Connector type [%1].</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Quorix::BizModel::Layer</name>
    <message>
        <source>Custom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SourceScale</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Quorix::BizModel::Preset</name>
    <message>
        <source>Preset %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device object where the preset is located is invalid.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The regular screen list and aux screen list is empty in the preset.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The quantity of the matched screens is zero.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The screen splicing is incomplete.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device is empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The preset&apos;s layer count more than max reguler layer count.
Preset&apos;s layer reguler count is %1, Current max reguler layer count is %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device object is null</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The preset type is invalid.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to load preset: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device object is null.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is incomplete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to load preset of some screens: </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Quorix::BizModel::Screen</name>
    <message>
        <source>layer %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Translate</name>
    <message>
        <source>Adding screen,please wait...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cleaning layers,please wait...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cleaning presets,please wait...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deleting preset,please wait...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to remove all the layers from PVW?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure you want to delete all the presets?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to remove all the layers from PGM?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>can&apos;t create PVW preset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to load some screens of preset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preset Content loaded sucessfully!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The preset will be directly loaded to PGM. Continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saving device data, please wait.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>save data failure.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>save data successed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Syncing device data , please wait.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please wait...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not consistent with the current layer capacity!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select a layer first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>4K</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>DL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wipe from bottom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Horizontal in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Horizontal out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wipe from left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wipe from bottom - left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wipe from top - left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wipe from right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wipe from bottom - right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wipe from top - right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wipe from top</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vertical in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vertical out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The number of layers exceeds the limit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fade</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No 4K input source, this operation cannot be completed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No DL input source, this operation cannot be completed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No SL input source, this operation cannot be completed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to find matching input source!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No matching input source found.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not enough resources.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The current operation cannot be completed during the screen taking.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Load to PGM</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Load to PVW</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Page %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The number of screens exceeds the limit!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Taking,please wait...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
