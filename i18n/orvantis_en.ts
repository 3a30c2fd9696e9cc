<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>CDlgOptions</name>
    <message>
        <source>Options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Program Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit Options</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CMainFrame</name>
    <message>
        <source>Initializing...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading fonts, icons, styles, ribbon menu...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Initializing docking panes...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Standard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Slide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Play</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The image path is empty or invalid, please reset the path.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>To apply language setting, the program must be restarted. Terminate program?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please stop automatic play out to exit play mode.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CSplashScreenEx</name>
    <message>
        <source>Initializing...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CTabEnvEdit</name>
    <message>
        <source>Background</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checkerboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Color:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checker size:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Image:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Guides</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use Grid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use Safety Zone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outer frame:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inner frame:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark SD Area</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All Formats (*.*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file to be inserted is unsupported.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CTabProgram</name>
    <message>
        <source>Display preview window on the left side</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Automatic backup saving period:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> min</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Korean</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>English</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Language:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CZevrantDoc</name>
    <message>
        <source>New Project</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CZevrantView</name>
    <message>
        <source> is saved.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Program was not closed properly.
Recovering from the last modification.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
