<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>CDevsInfoForm</name>
    <message>
        <source>Form</source>
        <translation>Formular</translation>
    </message>
</context>
<context>
    <name>CDevsInfoPage</name>
    <message>
        <source>GPS Version: </source>
        <translation>GPS-Version: </translation>
    </message>
    <message>
        <source>BLUETOOTH Version: </source>
        <translation>BLUETOOTH-Version: </translation>
    </message>
</context>
<context>
    <name>CGpsFwInfo</name>
    <message>
        <source>GPS Firmware Updating...</source>
        <translation>GPS-Firmware wird aktualisiert...</translation>
    </message>
</context>
<context>
    <name>CSetupAlsForm</name>
    <message>
        <source>Form</source>
        <translation>Formular</translation>
    </message>
    <message>
        <source>Current:0</source>
        <translation>Aktuell:0</translation>
    </message>
    <message>
        <source>DayDst [max:1000]</source>
        <translation>Tagwert [max:1000]</translation>
    </message>
    <message>
        <source>NightDst [min:0]</source>
        <translation>Nachtwert [min:0]</translation>
    </message>
</context>
<context>
    <name>CSetupKeyLightForm</name>
    <message>
        <source>Form</source>
        <translation>Formular</translation>
    </message>
    <message>
        <source>Red [0,100]</source>
        <translation>Rot [0,100]</translation>
    </message>
    <message>
        <source>Green [0,100]</source>
        <translation>Grün [0,100]</translation>
    </message>
    <message>
        <source>Blue [0,100]</source>
        <translation>Blau [0,100]</translation>
    </message>
</context>
<context>
    <name>CSetupPanelForm</name>
    <message>
        <source>Form</source>
        <translation>Formular</translation>
    </message>
    <message>
        <source>Brightness[0,24]</source>
        <translation>Helligkeit[0,24]</translation>
    </message>
    <message>
        <source>Constast[0,24]</source>
        <translation>Kontrast[0,24]</translation>
    </message>
    <message>
        <source>Hue[0,360]</source>
        <translation>Farbton[0,360]</translation>
    </message>
    <message>
        <source>Saturation[0,1.99]</source>
        <translation>Sättigung[0,1.99]</translation>
    </message>
</context>
<context>
    <name>CSysCtrlForm</name>
    <message>
        <source>Form</source>
        <translation>Formular</translation>
    </message>
    <message>
        <source>DriverRight</source>
        <translation>Rechtslenker</translation>
    </message>
    <message>
        <source>DimmerSwitch</source>
        <translation>Dimmer</translation>
    </message>
    <message>
        <source>Certification</source>
        <translation>Zertifizierung</translation>
    </message>
    <message>
        <source>GPS RESET</source>
        <translation>GPS-RESET</translation>
    </message>
    <message>
        <source>SYSTEMLOG</source>
        <translation>SYSTEMLOG</translation>
    </message>
    <message>
        <source>DAB FW Update</source>
        <translation>DAB-FW-Update</translation>
    </message>
    <message>
        <source>Touch Check</source>
        <translation>Touch-Test</translation>
    </message>
</context>
<context>
    <name>CSysCtrlPage</name>
    <message>
        <source>DAB FW Updata 
</source>
        <translation>DAB-FW-Update 
</translation>
    </message>
    <message>
        <source>COPYING...</source>
        <translation>KOPIERE...</translation>
    </message>
    <message>
        <source>SYSTEMLOG</source>
        <translation>SYSTEMLOG</translation>
    </message>
    <message>
        <source>DAB updata ...
</source>
        <translation>DAB-Update ...
</translation>
    </message>
    <message>
        <source>Please reboot!</source>
        <translation>Bitte Neustart!</translation>
    </message>
    <message>
        <source>DAB updata Fail
</source>
        <translation>DAB-Fehler
</translation>
    </message>
    <message>
        <source>DAB updata ok
</source>
        <translation>DAB-Update ok
</translation>
    </message>
</context>
<context>
    <name>FactoryDebugView</name>
    <message>
        <source>USB Test</source>
        <translation>USB-Test</translation>
    </message>
    <message>
        <source>USB Eye</source>
        <translation>USB-Auge</translation>
    </message>
    <message>
        <source>NCM Test</source>
        <translation>NCM-Test</translation>
    </message>
    <message>
        <source>KeyColor</source>
        <translation>Tastenfarbe</translation>
    </message>
    <message>
        <source>Vendordata</source>
        <translation>Herstellerdaten</translation>
    </message>
    <message>
        <source>GPS Update</source>
        <translation>GPS-Update</translation>
    </message>
    <message>
        <source>ALS Test</source>
        <translation>ALS-Test</translation>
    </message>
    <message>
        <source>Product</source>
        <translation>Produkt</translation>
    </message>
    <message>
        <source>SysCtrl</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Panel Config</source>
        <translation>Bildeinstellung</translation>
    </message>
    <message>
        <source>Copy Btsnoop</source>
        <translation>Btsnoop kopieren</translation>
    </message>
    <message>
        <source>Capture</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Start USB Test</source>
        <translation>USB-Test starten</translation>
    </message>
    <message>
        <source>capture turned on</source>
        <translation>Aufnahme eingeschaltet</translation>
    </message>
    <message>
        <source>capture turned off</source>
        <translation>Aufnahme ausgeschaltet</translation>
    </message>
    <message>
        <source>USB Eye Test</source>
        <translation>USB-Augendiagramm</translation>
    </message>
    <message>
        <source>KeyColor Set</source>
        <translation>Tastenfarbe einstellen</translation>
    </message>
    <message>
        <source>VendorData Set</source>
        <translation>Herstellerdaten einstellen</translation>
    </message>
    <message>
        <source>Product Version</source>
        <translation>Produktversion</translation>
    </message>
    <message>
        <source>System Control</source>
        <translation>Systemsteuerung</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>FactoryDebug</source>
        <translation>FactoryDebug</translation>
    </message>
</context>
<context>
    <name>StatusBar</name>
    <message>
        <source>Factory</source>
        <translation>Werksmenü</translation>
    </message>
</context>
<context>
    <name>UI_NcmTest</name>
    <message>
        <source>Connect the accessory to an Apple device that client test</source>
        <translation>Zubehör mit einem Apple-Gerät verbinden, das als Client testet</translation>
    </message>
    <message>
        <source>USB Speed SW</source>
        <translation>USB-Tempo</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>NCM SW</source>
        <translation>NCM-Schalter</translation>
    </message>
    <message>
        <source>NCM On</source>
        <translation>NCM ein</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Client</translation>
    </message>
    <message>
        <source>UDP 100</source>
        <translation>UDP 100</translation>
    </message>
    <message>
        <source>TCP</source>
        <translation>TCP</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>UDP 50</source>
        <translation>UDP 50</translation>
    </message>
    <message>
        <source>Server</source>
        <translation>Server</translation>
    </message>
    <message>
        <source>UDP</source>
        <translation>UDP</translation>
    </message>
</context>
<context>
    <name>UI_USBEyeTest</name>
    <message>
        <source>USB Port</source>
        <translation>USB-Port</translation>
    </message>
    <message>
        <source>Port0</source>
        <translation>Port0</translation>
    </message>
    <message>
        <source>Port1</source>
        <translation>Port1</translation>
    </message>
    <message>
        <source>USB Speed</source>
        <translation>USB-Tempo</translation>
    </message>
    <message>
        <source>High Speed</source>
        <translation>High Speed</translation>
    </message>
    <message>
        <source>Full Speed</source>
        <translation>Full Speed</translation>
    </message>
    <message>
        <source>UPHY Parameter</source>
        <translation>UPHY-Parameter</translation>
    </message>
    <message>
        <source>Swing</source>
        <translation>Amplitude</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Trennung</translation>
    </message>
    <message>
        <source>0</source>
        <translation>0</translation>
    </message>
    <message>
        <source>Test Pattern</source>
        <translation>Testmuster</translation>
    </message>
    <message>
        <source>Eye Diagram</source>
        <translation>Auge</translation>
    </message>
    <message>
        <source>Test J</source>
        <translation>Test J</translation>
    </message>
    <message>
        <source>Test K</source>
        <translation>Test K</translation>
    </message>
    <message>
        <source>SE0</source>
        <translation>SE0</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keines</translation>
    </message>
    <message>
        <source>Use UPHY</source>
        <translation>UPHY nutzen</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Lesen</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>Schreiben</translation>
    </message>
    <message>
        <source>Host Mode</source>
        <translation>Host-Modus</translation>
    </message>
    <message>
        <source>Device Mode</source>
        <translation>Gerätemodus</translation>
    </message>
</context>
<context>
    <name>USBEyeTestView</name>
    <message>
        <source>-0</source>
        <translation>-0</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>Schreiben</translation>
    </message>
    <message>
        <source>Set Test Mode</source>
        <translation>Testmodus setzen</translation>
    </message>
</context>
<context>
    <name>USBTestModel</name>
    <message>
        <source>USB0 BC Mode</source>
        <translation>USB0-BC-Modus</translation>
    </message>
    <message>
        <source>USB1 BC Mode</source>
        <translation>USB1-BC-Modus</translation>
    </message>
    <message>
        <source>TEST Mode</source>
        <translation>Testmodus</translation>
    </message>
</context>
<context>
    <name>USBTestView</name>
    <message>
        <source>USB0 BC Model</source>
        <translation>USB0-BC-Modus</translation>
    </message>
    <message>
        <source>USB1 BC Model</source>
        <translation>USB1-BC-Modus</translation>
    </message>
    <message>
        <source>TEST Model</source>
        <translation>Testmodus</translation>
    </message>
    <message>
        <source>USB Test</source>
        <translation>USB-Test</translation>
    </message>
</context>
<context>
    <name>UserUpdateDialog</name>
    <message>
        <source>User Update via SD0?
</source>
        <translation>Benutzer-Update von SD0?
</translation>
    </message>
    <message>
        <source>User Update via SD1?
</source>
        <translation>Benutzer-Update von SD1?
</translation>
    </message>
    <message>
        <source>User Update via USB0?
</source>
        <translation>Benutzer-Update von USB0?
</translation>
    </message>
    <message>
        <source>User Update via USB1?
</source>
        <translation>Benutzer-Update von USB1?
</translation>
    </message>
    <message>
        <source>Verifing...</source>
        <translation>Wird geprüft...</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>User Update Auto Detect mode?
</source>
        <translation>Benutzer-Update, Quelle automatisch?
</translation>
    </message>
    <message>
        <source>No ORRERY_PACK.BIN here!</source>
        <translation>Keine ORRERY_PACK.BIN vorhanden!</translation>
    </message>
    <message>
        <source>NewCUSTVer:</source>
        <translation>Neue CUST-Version:</translation>
    </message>
    <message>
        <source>NewSDKVer:</source>
        <translation>Neue SDK-Version:</translation>
    </message>
    <message>
        <source>Verify Pass</source>
        <translation>Prüfung bestanden</translation>
    </message>
    <message>
        <source>Verify Failed</source>
        <translation>Prüfung misslungen</translation>
    </message>
</context>
<context>
    <name>VendorDataModel</name>
    <message>
        <source>USB0</source>
        <translation>USB0</translation>
    </message>
    <message>
        <source>USB1</source>
        <translation>USB1</translation>
    </message>
    <message>
        <source>SD0</source>
        <translation>SD0</translation>
    </message>
    <message>
        <source>SD1</source>
        <translation>SD1</translation>
    </message>
    <message>
        <source>Auto Detect</source>
        <translation>Automatisch</translation>
    </message>
</context>
<context>
    <name>gpsFWInfoForm</name>
    <message>
        <source>Form</source>
        <translation>Formular</translation>
    </message>
    <message>
        <source>Verifying...</source>
        <translation>Wird geprüft...</translation>
    </message>
    <message>
        <source>Firmware verified Success</source>
        <translation>Firmware fehlerfrei</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>GPS Firmware Upgrade</source>
        <translation>GPS-Firmware-Upgrade</translation>
    </message>
</context>
</TS>
