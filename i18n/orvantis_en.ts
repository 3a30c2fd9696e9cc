<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>orv::CDlgOptions</name>
    <message>
        <source>Options</source>
        <translation>Options</translation>
    </message>
    <message>
        <source>Program Settings</source>
        <translation>Program Settings</translation>
    </message>
    <message>
        <source>Edit Options</source>
        <translation>Edit Options</translation>
    </message>
</context>
<context>
    <name>orv::CMainFrame</name>
    <message>
        <source>Initializing...</source>
        <translation>Initializing...</translation>
    </message>
    <message>
        <source>Loading fonts, icons, styles, ribbon menu...</source>
        <translation>Loading fonts, icons, styles, ribbon menu...</translation>
    </message>
    <message>
        <source>Initializing docking panes...</source>
        <translation>Initializing docking panes...</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>E&amp;xit</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Tools</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>&amp;Options...</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Slide</source>
        <translation>Slide</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>Outline</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Play</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>The image path is empty or invalid, please reset the path.</source>
        <translation>The image path is empty or invalid, please reset the path.</translation>
    </message>
    <message>
        <source>To apply language setting, the program must be restarted. Terminate program?</source>
        <translation>To apply language setting, the program must be restarted. Terminate program?</translation>
    </message>
    <message>
        <source>Please stop automatic play out to exit play mode.</source>
        <translation>Please stop automatic play out to exit play mode.</translation>
    </message>
    <message>
        <source>Program was not closed properly.
Recovering from the last modification.</source>
        <translation>Program was not closed properly.
Recovering from the last modification.</translation>
    </message>
</context>
<context>
    <name>orv::CSplashScreenEx</name>
    <message>
        <source>Initializing...</source>
        <translation>Initializing...</translation>
    </message>
</context>
<context>
    <name>orv::CTabEnvEdit</name>
    <message>
        <source>Background</source>
        <translation>Background</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Color</translation>
    </message>
    <message>
        <source>Checkerboard</source>
        <translation>Checkerboard</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Color:</source>
        <translation>Color:</translation>
    </message>
    <message>
        <source>Checker size:</source>
        <translation>Checker size:</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Image:</source>
        <translation>Image:</translation>
    </message>
    <message>
        <source>Guides</source>
        <translation>Guides</translation>
    </message>
    <message>
        <source>Use Grid</source>
        <translation>Use Grid</translation>
    </message>
    <message>
        <source>Use Safety Zone</source>
        <translation>Use Safety Zone</translation>
    </message>
    <message>
        <source>Outer frame:</source>
        <translation>Outer frame:</translation>
    </message>
    <message>
        <source>Inner frame:</source>
        <translation>Inner frame:</translation>
    </message>
    <message>
        <source>Mark SD Area</source>
        <translation>Mark SD Area</translation>
    </message>
    <message>
        <source>All Formats (*.*)</source>
        <translation>All Formats (*.*)</translation>
    </message>
    <message>
        <source>The file to be inserted is unsupported.</source>
        <translation>The file to be inserted is unsupported.</translation>
    </message>
</context>
<context>
    <name>orv::CTabProgram</name>
    <message>
        <source>Display preview window on the left side</source>
        <translation>Display preview window on the left side</translation>
    </message>
    <message>
        <source>Automatic backup saving period:</source>
        <translation>Automatic backup saving period:</translation>
    </message>
    <message>
        <source> min</source>
        <translation> min</translation>
    </message>
    <message>
        <source>Korean</source>
        <translation>Korean</translation>
    </message>
    <message>
        <source>English</source>
        <translation>English</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>Language:</translation>
    </message>
</context>
<context>
    <name>orv::CZevrantDoc</name>
    <message>
        <source>New Project</source>
        <translation>New Project</translation>
    </message>
</context>
<context>
    <name>orv::CZevrantView</name>
    <message>
        <source> is saved.</source>
        <translation> is saved.</translation>
    </message>
</context>
</TS>
