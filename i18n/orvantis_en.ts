<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>orv::CMainFrame</name>
    <message>
        <source>Show all pages as large thumbnails
Page Overview</source>
        <translation>Show all pages as large thumbnails
Page Overview</translation>
    </message>
    <message>
        <source>Find the specified text
Find</source>
        <translation>Find the specified text
Find</translation>
    </message>
    <message>
        <source>Jump to specific page
Jump To Page</source>
        <translation>Jump to specific page
Jump To Page</translation>
    </message>
    <message>
        <source>Go to the previous page
Previous Page</source>
        <translation>Go to the previous page
Previous Page</translation>
    </message>
    <message>
        <source>Go to the next page
Next Page</source>
        <translation>Go to the next page
Next Page</translation>
    </message>
    <message>
        <source>End the edit and select objects
End Edit</source>
        <translation>End the edit and select objects
End Edit</translation>
    </message>
    <message>
        <source>Select the next object
Next Object</source>
        <translation>Select the next object
Next Object</translation>
    </message>
    <message>
        <source>Select the previous object
Previous Object</source>
        <translation>Select the previous object
Previous Object</translation>
    </message>
    <message>
        <source>Select the entire object
Select All</source>
        <translation>Select the entire object
Select All</translation>
    </message>
</context>
<context>
    <name>CQRDObjectTC</name>
    <message>
        <source>Sunday</source>
        <translation>Sunday</translation>
    </message>
    <message>
        <source>Monday</source>
        <translation>Monday</translation>
    </message>
    <message>
        <source>Tuesday</source>
        <translation>Tuesday</translation>
    </message>
    <message>
        <source>Wednesday</source>
        <translation>Wednesday</translation>
    </message>
    <message>
        <source>Thursday</source>
        <translation>Thursday</translation>
    </message>
    <message>
        <source>Friday</source>
        <translation>Friday</translation>
    </message>
    <message>
        <source>Saturday</source>
        <translation>Saturday</translation>
    </message>
    <message>
        <source>AM</source>
        <translation>AM</translation>
    </message>
    <message>
        <source>PM</source>
        <translation>PM</translation>
    </message>
</context>
<context>
    <name>orv::CAutoDlg</name>
    <message>
        <source>Play Out</source>
        <translation>Play Out</translation>
    </message>
    <message>
        <source>Logo</source>
        <translation>Logo</translation>
    </message>
</context>
<context>
    <name>orv::CDataPane</name>
    <message>
        <source>Field</source>
        <translation>Field</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>New data on air:</source>
        <translation>New data on air:</translation>
    </message>
    <message>
        <source>Change in place</source>
        <translation>Change in place</translation>
    </message>
    <message>
        <source>Take again</source>
        <translation>Take again</translation>
    </message>
    <message>
        <source>Rows from CSV...</source>
        <translation>Rows from CSV...</translation>
    </message>
    <message>
        <source>No Rows</source>
        <translation>No Rows</translation>
    </message>
    <message>
        <source>No page.</source>
        <translation>No page.</translation>
    </message>
    <message>
        <source>This page has no fields: type {{name}} in a text.</source>
        <translation>This page has no fields: type {{name}} in a text.</translation>
    </message>
    <message>
        <source>No rows</source>
        <translation>No rows</translation>
    </message>
    <message>
        <source>%1: next row %2 of %3</source>
        <translation>%1: next row %2 of %3</translation>
    </message>
    <message>
        <source>Rows from CSV</source>
        <translation>Rows from CSV</translation>
    </message>
    <message>
        <source>CSV Files (*.csv)</source>
        <translation>CSV Files (*.csv)</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Data</translation>
    </message>
    <message>
        <source>Save the project first: its rows are kept beside it.</source>
        <translation>Save the project first: its rows are kept beside it.</translation>
    </message>
    <message>
        <source>%1 cannot be used: %2</source>
        <translation>%1 cannot be used: %2</translation>
    </message>
    <message>
        <source>%1 cannot be used: its name starts with a dot.</source>
        <translation>%1 cannot be used: its name starts with a dot.</translation>
    </message>
    <message>
        <source>%1 cannot be copied into the project&apos;s folder.</source>
        <translation>%1 cannot be copied into the project's folder.</translation>
    </message>
</context>
<context>
    <name>orv::CDlgBlink</name>
    <message>
        <source>Blink properties</source>
        <translation>Blink properties</translation>
    </message>
    <message>
        <source>개체유무</source>
        <translation>개체유무</translation>
    </message>
    <message>
        <source>색으로</source>
        <translation>색으로</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>Mode:</translation>
    </message>
    <message>
        <source>Colour:</source>
        <translation>Colour:</translation>
    </message>
    <message>
        <source>Speed:</source>
        <translation>Speed:</translation>
    </message>
</context>
<context>
    <name>orv::CDlgConfigDecklink</name>
    <message>
        <source>Hardware Configuration</source>
        <translation>Hardware Configuration</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Device</translation>
    </message>
    <message>
        <source>Video Format</source>
        <translation>Video Format</translation>
    </message>
    <message>
        <source>Audio Format</source>
        <translation>Audio Format</translation>
    </message>
    <message>
        <source>Keying</source>
        <translation>Keying</translation>
    </message>
    <message>
        <source>Internal</source>
        <translation>Internal</translation>
    </message>
    <message>
        <source>External</source>
        <translation>External</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Output</translation>
    </message>
    <message>
        <source>Card</source>
        <translation>Card</translation>
    </message>
    <message>
        <source>Clock only, no picture</source>
        <translation>Clock only, no picture</translation>
    </message>
    <message>
        <source>Program monitor</source>
        <translation>Program monitor</translation>
    </message>
    <message>
        <source>File (lossless, fill and key)</source>
        <translation>File (lossless, fill and key)</translation>
    </message>
    <message>
        <source>SRT stream (fill over black)</source>
        <translation>SRT stream (fill over black)</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>output.mkv</source>
        <translation>output.mkv</translation>
    </message>
    <message>
        <source>Output File</source>
        <translation>Output File</translation>
    </message>
    <message>
        <source>Matroska Files (*.mkv)</source>
        <translation>Matroska Files (*.mkv)</translation>
    </message>
</context>
<context>
    <name>orv::CDlgEffectSizes</name>
    <message>
        <source>Effects</source>
        <translation>Effects</translation>
    </message>
    <message>
        <source>Edge:</source>
        <translation>Edge:</translation>
    </message>
    <message>
        <source>Outline:</source>
        <translation>Outline:</translation>
    </message>
    <message>
        <source>Edge softness:</source>
        <translation>Edge softness:</translation>
    </message>
    <message>
        <source>Drop</source>
        <translation>Drop</translation>
    </message>
    <message>
        <source>Drag</source>
        <translation>Drag</translation>
    </message>
    <message>
        <source>Shadow:</source>
        <translation>Shadow:</translation>
    </message>
    <message>
        <source>Shadow X:</source>
        <translation>Shadow X:</translation>
    </message>
    <message>
        <source>Shadow Y:</source>
        <translation>Shadow Y:</translation>
    </message>
    <message>
        <source>Shadow softness:</source>
        <translation>Shadow softness:</translation>
    </message>
</context>
<context>
    <name>orv::CDlgFind</name>
    <message>
        <source>&amp;Up</source>
        <translation>&amp;Up</translation>
    </message>
    <message>
        <source>&amp;Down</source>
        <translation>&amp;Down</translation>
    </message>
    <message>
        <source>Match &amp;case</source>
        <translation>Match &amp;case</translation>
    </message>
    <message>
        <source>&amp;Find Next</source>
        <translation>&amp;Find Next</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Find</translation>
    </message>
    <message>
        <source>Fi&amp;nd what:</source>
        <translation>Fi&amp;nd what:</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Direction</translation>
    </message>
    <message>
        <source>can not be found.</source>
        <translation>can not be found.</translation>
    </message>
</context>
<context>
    <name>orv::CDlgGradient</name>
    <message>
        <source>Gradient</source>
        <translation>Gradient</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>Linear</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Path</translation>
    </message>
    <message>
        <source>Old</source>
        <translation>Old</translation>
    </message>
    <message>
        <source>New</source>
        <translation>New</translation>
    </message>
    <message>
        <source>Gradient type</source>
        <translation>Gradient type</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Angle</translation>
    </message>
    <message>
        <source>Alpha</source>
        <translation>Alpha</translation>
    </message>
</context>
<context>
    <name>orv::CDlgJump</name>
    <message>
        <source>Move to Page</source>
        <translation>Move to Page</translation>
    </message>
    <message>
        <source>Page:</source>
        <translation>Page:</translation>
    </message>
</context>
<context>
    <name>orv::CDlgOpenPrj</name>
    <message>
        <source>Open Project</source>
        <translation>Open Project</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>Location:</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Project</translation>
    </message>
    <message>
        <source>Created</source>
        <translation>Created</translation>
    </message>
    <message>
        <source>Modified</source>
        <translation>Modified</translation>
    </message>
    <message>
        <source>Project Name:</source>
        <translation>Project Name:</translation>
    </message>
    <message>
        <source>Pages:</source>
        <translation>Pages:</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Preview</translation>
    </message>
    <message>
        <source>Please select a project.</source>
        <translation>Please select a project.</translation>
    </message>
</context>
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
    <message>
        <source>Remote Control</source>
        <translation>Remote Control</translation>
    </message>
</context>
<context>
    <name>orv::CDlgPageOverview</name>
    <message>
        <source>Page Overview</source>
        <translation>Page Overview</translation>
    </message>
</context>
<context>
    <name>orv::CDlgPrj</name>
    <message>
        <source>New Project</source>
        <translation>New Project</translation>
    </message>
    <message>
        <source>Save Project As</source>
        <translation>Save Project As</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>Location:</translation>
    </message>
    <message>
        <source>Project name:</source>
        <translation>Project name:</translation>
    </message>
    <message>
        <source>HD(16:9)</source>
        <translation>HD(16:9)</translation>
    </message>
    <message>
        <source>SD(4:3)</source>
        <translation>SD(4:3)</translation>
    </message>
    <message>
        <source>The project name already exists, please reenter project name.</source>
        <translation>The project name already exists, please reenter project name.</translation>
    </message>
</context>
<context>
    <name>orv::CDlgProgress</name>
    <message>
        <source>Converting...</source>
        <translation>Converting...</translation>
    </message>
</context>
<context>
    <name>orv::CDlgPropAni</name>
    <message>
        <source>Animation Properties</source>
        <translation>Animation Properties</translation>
    </message>
    <message>
        <source>FPS:</source>
        <translation>FPS:</translation>
    </message>
    <message>
        <source>Repeat:</source>
        <translation>Repeat:</translation>
    </message>
</context>
<context>
    <name>orv::CDlgPropTC</name>
    <message>
        <source>Timer/Counter Properties</source>
        <translation>Timer/Counter Properties</translation>
    </message>
    <message>
        <source>Timer/Counter</source>
        <translation>Timer/Counter</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>Clock</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Format:</translation>
    </message>
    <message>
        <source>Start:</source>
        <translation>Start:</translation>
    </message>
    <message>
        <source>End:</source>
        <translation>End:</translation>
    </message>
    <message>
        <source>24 hours</source>
        <translation>24 hours</translation>
    </message>
    <message>
        <source>Preview:</source>
        <translation>Preview:</translation>
    </message>
</context>
<context>
    <name>orv::CDlgRetrText</name>
    <message>
        <source>Import Text File</source>
        <translation>Import Text File</translation>
    </message>
    <message>
        <source>Left margin:</source>
        <translation>Left margin:</translation>
    </message>
    <message>
        <source>Right margin:</source>
        <translation>Right margin:</translation>
    </message>
    <message>
        <source>Lines Per Page:</source>
        <translation>Lines Per Page:</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>Open...</translation>
    </message>
    <message>
        <source>Append Pages</source>
        <translation>Append Pages</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Insert</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>Text File (*.txt)</source>
        <translation>Text File (*.txt)</translation>
    </message>
</context>
<context>
    <name>orv::CDlgTyping</name>
    <message>
        <source>Typing properties</source>
        <translation>Typing properties</translation>
    </message>
    <message>
        <source>수동</source>
        <translation>수동</translation>
    </message>
    <message>
        <source>자동</source>
        <translation>자동</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>Mode:</translation>
    </message>
    <message>
        <source>자간단위</source>
        <translation>자간단위</translation>
    </message>
    <message>
        <source>라인단위</source>
        <translation>라인단위</translation>
    </message>
    <message>
        <source>Order:</source>
        <translation>Order:</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>지연:</source>
        <translation>지연:</translation>
    </message>
</context>
<context>
    <name>orv::CMainFrame</name>
    <message>
        <source>Animations and picture sequences (*.ani32 *.ANI32 *.qrdani *.QRDANI *.avi *.mov *.mp4 *.mkv *.webm *.mxf *.tga *.png);;ANI32 (*.ani32 *.ANI32);;QRDANI (*.qrdani *.QRDANI);;Video (*.avi *.mov *.mp4 *.mkv *.webm *.mxf);;Picture sequence (*.tga *.png)</source>
        <translation>Animations and picture sequences (*.ani32 *.ANI32 *.qrdani *.QRDANI *.avi *.mov *.mp4 *.mkv *.webm *.mxf *.tga *.png);;ANI32 (*.ani32 *.ANI32);;QRDANI (*.qrdani *.QRDANI);;Video (*.avi *.mov *.mp4 *.mkv *.webm *.mxf);;Picture sequence (*.tga *.png)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>Failed converting TGA(PNG) sequence files to animation file.</source>
        <translation>Failed converting TGA(PNG) sequence files to animation file.</translation>
    </message>
    <message>
        <source>Failed inserting animation file</source>
        <translation>Failed inserting animation file</translation>
    </message>
    <message>
        <source>O&amp;utput</source>
        <translation>O&amp;utput</translation>
    </message>
    <message>
        <source>Hardware Configuration
Configure</source>
        <translation>Hardware Configuration
Configure</translation>
    </message>
    <message>
        <source>Reset the graphic board
Reset</source>
        <translation>Reset the graphic board
Reset</translation>
    </message>
    <message>
        <source>Put colour bars and a key ramp on the output
Test Card</source>
        <translation>Put colour bars and a key ramp on the output
Test Card</translation>
    </message>
    <message>
        <source>Show what the output sends
Program Monitor</source>
        <translation>Show what the output sends
Program Monitor</translation>
    </message>
    <message>
        <source>The output %1 failed (%2); frames go to the clock-paced output.</source>
        <translation>The output %1 failed (%2); frames go to the clock-paced output.</translation>
    </message>
    <message>
        <source>To apply changes, the program must be restarted. Terminate program?</source>
        <translation>To apply changes, the program must be restarted. Terminate program?</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Undo</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Redo</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Cu&amp;t</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copy</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Paste</translation>
    </message>
    <message>
        <source>Pictures (*.bmp *.jpg *.jpeg *.png *.tga *.tif *.tiff *.gif);;BMP (*.bmp);;JPEG (*.jpg *.jpeg);;PNG (*.png);;TGA (*.tga);;TIFF (*.tif *.tiff);;GIF (*.gif)</source>
        <translation>Pictures (*.bmp *.jpg *.jpeg *.png *.tga *.tif *.tiff *.gif);;BMP (*.bmp);;JPEG (*.jpg *.jpeg);;PNG (*.png);;TGA (*.tga);;TIFF (*.tif *.tiff);;GIF (*.gif)</translation>
    </message>
    <message>
        <source>&amp;Insert</source>
        <translation>&amp;Insert</translation>
    </message>
    <message>
        <source>Insert a picture file
Picture...</source>
        <translation>Insert a picture file
Picture...</translation>
    </message>
    <message>
        <source>Insert a background picture
Background...</source>
        <translation>Insert a background picture
Background...</translation>
    </message>
    <message>
        <source>Erase the background picture
Erase Background</source>
        <translation>Erase the background picture
Erase Background</translation>
    </message>
    <message>
        <source>Insert a background picture on every page
Background to All Pages...</source>
        <translation>Insert a background picture on every page
Background to All Pages...</translation>
    </message>
    <message>
        <source>Insert animation
Animation...</source>
        <translation>Insert animation
Animation...</translation>
    </message>
    <message>
        <source>Insert a timer, counter or clock
Insert Timer/Counter</source>
        <translation>Insert a timer, counter or clock
Insert Timer/Counter</translation>
    </message>
    <message>
        <source>Timer/Counter properties
Timer/Counter Properties...</source>
        <translation>Timer/Counter properties
Timer/Counter Properties...</translation>
    </message>
    <message>
        <source>Timers</source>
        <translation>Timers</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Resume</translation>
    </message>
    <message>
        <source>Restart</source>
        <translation>Restart</translation>
    </message>
    <message>
        <source>Set...</source>
        <translation>Set...</translation>
    </message>
    <message>
        <source>Set Timers</source>
        <translation>Set Timers</translation>
    </message>
    <message>
        <source>Animation properties
Animation Properties...</source>
        <translation>Animation properties
Animation Properties...</translation>
    </message>
    <message>
        <source>Play the selected animation through on the canvas
Preview Animation</source>
        <translation>Play the selected animation through on the canvas
Preview Animation</translation>
    </message>
    <message>
        <source>Start keying
Start Keying</source>
        <translation>Start keying
Start Keying</translation>
    </message>
    <message>
        <source>Reset key value
Reset Key</source>
        <translation>Reset key value
Reset Key</translation>
    </message>
    <message>
        <source>Alpha value for selected picture
Picture Alpha...</source>
        <translation>Alpha value for selected picture
Picture Alpha...</translation>
    </message>
    <message>
        <source>Group objects
Group</source>
        <translation>Group objects
Group</translation>
    </message>
    <message>
        <source>Ungroup objects
Ungroup</source>
        <translation>Ungroup objects
Ungroup</translation>
    </message>
    <message>
        <source>Failed loading picture.</source>
        <translation>Failed loading picture.</translation>
    </message>
    <message>
        <source>Alpha</source>
        <translation>Alpha</translation>
    </message>
    <message>
        <source>Alpha (0 to 255):</source>
        <translation>Alpha (0 to 255):</translation>
    </message>
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
        <source>Initializing hardware....</source>
        <translation>Initializing hardware....</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>Export page to Image (TGA 32)</source>
        <translation>Export page to Image (TGA 32)</translation>
    </message>
    <message>
        <source>Save to TGA 32bit image.</source>
        <translation>Save to TGA 32bit image.</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>E&amp;xit</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>&amp;Options...</translation>
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
        <source>Bring objects to front
Bring to Front</source>
        <translation>Bring objects to front
Bring to Front</translation>
    </message>
    <message>
        <source>Send objects to back
Send to Back</source>
        <translation>Send objects to back
Send to Back</translation>
    </message>
    <message>
        <source>Bring objects forward
Bring Forward</source>
        <translation>Bring objects forward
Bring Forward</translation>
    </message>
    <message>
        <source>Send objects backward
Send Backward</source>
        <translation>Send objects backward
Send Backward</translation>
    </message>
    <message>
        <source>Align objects to left
Align objects to left</source>
        <translation>Align objects to left
Align objects to left</translation>
    </message>
    <message>
        <source>Align objects to right
Align objects to right</source>
        <translation>Align objects to right
Align objects to right</translation>
    </message>
    <message>
        <source>Align objects to top
Align objects to top</source>
        <translation>Align objects to top
Align objects to top</translation>
    </message>
    <message>
        <source>Align objects to bottom
Align objects to bottom</source>
        <translation>Align objects to bottom
Align objects to bottom</translation>
    </message>
    <message>
        <source>Align objects to center
Align to center</source>
        <translation>Align objects to center
Align to center</translation>
    </message>
    <message>
        <source>Align objects to horizontal center
Align objects to horizontal center</source>
        <translation>Align objects to horizontal center
Align objects to horizontal center</translation>
    </message>
    <message>
        <source>Align objects to vertical center
Align objects to vertical center</source>
        <translation>Align objects to vertical center
Align objects to vertical center</translation>
    </message>
    <message>
        <source>Align to left
Align to left</source>
        <translation>Align to left
Align to left</translation>
    </message>
    <message>
        <source>Align to right
Align to right</source>
        <translation>Align to right
Align to right</translation>
    </message>
    <message>
        <source>Align to top
Align to top</source>
        <translation>Align to top
Align to top</translation>
    </message>
    <message>
        <source>Align to bottom
Align to bottom</source>
        <translation>Align to bottom
Align to bottom</translation>
    </message>
    <message>
        <source>&amp;Arrange</source>
        <translation>&amp;Arrange</translation>
    </message>
    <message>
        <source>&amp;Page</source>
        <translation>&amp;Page</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Cut</translation>
    </message>
    <message>
        <source>Roll</source>
        <translation>Roll</translation>
    </message>
    <message>
        <source>Crawl</source>
        <translation>Crawl</translation>
    </message>
    <message>
        <source>New Page</source>
        <translation>New Page</translation>
    </message>
    <message>
        <source>Delete Page</source>
        <translation>Delete Page</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>Previous Page</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>Next Page</translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation>&amp;Text</translation>
    </message>
    <message>
        <source>Edit Text.
Text</source>
        <translation>Edit Text.
Text</translation>
    </message>
    <message>
        <source>Select an Object.
Select</source>
        <translation>Select an Object.
Select</translation>
    </message>
    <message>
        <source>Choose the font of the text.
Font...</source>
        <translation>Choose the font of the text.
Font...</translation>
    </message>
    <message>
        <source>Choose the size of the text.
Font Size...</source>
        <translation>Choose the size of the text.
Font Size...</translation>
    </message>
    <message>
        <source>Split text into lines
Split into Lines</source>
        <translation>Split text into lines
Split into Lines</translation>
    </message>
    <message>
        <source>Split text into characters
Split into Characters</source>
        <translation>Split text into characters
Split into Characters</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Font</translation>
    </message>
    <message>
        <source>Font:</source>
        <translation>Font:</translation>
    </message>
    <message>
        <source>Font Size</source>
        <translation>Font Size</translation>
    </message>
    <message>
        <source>Size (points):</source>
        <translation>Size (points):</translation>
    </message>
    <message>
        <source>Objects within the page will be lost. Do you wish to proceed?</source>
        <translation>Objects within the page will be lost. Do you wish to proceed?</translation>
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
        <source>TGA Files(*.TGA)</source>
        <translation>TGA Files(*.TGA)</translation>
    </message>
    <message>
        <source>The page could not be written to %1.</source>
        <translation>The page could not be written to %1.</translation>
    </message>
    <message>
        <source>Please stop automatic play out to exit play mode.</source>
        <translation>Please stop automatic play out to exit play mode.</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Play</translation>
    </message>
    <message>
        <source>Play Mode
Play Mode</source>
        <translation>Play Mode
Play Mode</translation>
    </message>
    <message>
        <source>Open or close the play window
Play Window</source>
        <translation>Open or close the play window
Play Window</translation>
    </message>
    <message>
        <source>Erase output
Erase Output
Erase</source>
        <translation>Erase output
Erase Output
Erase</translation>
    </message>
    <message>
        <source>Discard current page for play out.
Discard</source>
        <translation>Discard current page for play out.
Discard</translation>
    </message>
    <message>
        <source>Play Out</source>
        <translation>Play Out</translation>
    </message>
    <message>
        <source>Project files (*.qrdprj);;All files (*)</source>
        <translation>Project files (*.qrdprj);;All files (*)</translation>
    </message>
    <message>
        <source>&amp;New Project...</source>
        <translation>&amp;New Project...</translation>
    </message>
    <message>
        <source>&amp;Open Project...</source>
        <translation>&amp;Open Project...</translation>
    </message>
    <message>
        <source>Open Project &amp;File...</source>
        <translation>Open Project &amp;File...</translation>
    </message>
    <message>
        <source>S&amp;witch Project</source>
        <translation>S&amp;witch Project</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>Save Project &amp;As...</source>
        <translation>Save Project &amp;As...</translation>
    </message>
    <message>
        <source>&amp;Close Project</source>
        <translation>&amp;Close Project</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>(none)</translation>
    </message>
    <message>
        <source>The project %1 could not be opened:
%2</source>
        <translation>The project %1 could not be opened:
%2</translation>
    </message>
    <message>
        <source>Program was not closed properly.
Recovering from the last modification.</source>
        <translation>Program was not closed properly.
Recovering from the last modification.</translation>
    </message>
    <message>
        <source>Open Project File</source>
        <translation>Open Project File</translation>
    </message>
    <message>
        <source>Failed to create project.</source>
        <translation>Failed to create project.</translation>
    </message>
    <message>
        <source> is saved.</source>
        <translation> is saved.</translation>
    </message>
    <message>
        <source>The project could not be saved:
%1</source>
        <translation>The project could not be saved:
%1</translation>
    </message>
    <message>
        <source>Failed copying files.</source>
        <translation>Failed copying files.</translation>
    </message>
    <message>
        <source>Save the changes?</source>
        <translation>Save the changes?</translation>
    </message>
    <message>
        <source>Please exit play mode to close project.</source>
        <translation>Please exit play mode to close project.</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rectangle</translation>
    </message>
    <message>
        <source>Rounded Rectangle</source>
        <translation>Rounded Rectangle</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>Circle</translation>
    </message>
    <message>
        <source>Slanted Bar Left</source>
        <translation>Slanted Bar Left</translation>
    </message>
    <message>
        <source>Slanted Bar Right</source>
        <translation>Slanted Bar Right</translation>
    </message>
    <message>
        <source>Diamond</source>
        <translation>Diamond</translation>
    </message>
    <message>
        <source>Pentagon</source>
        <translation>Pentagon</translation>
    </message>
    <message>
        <source>Hexagon</source>
        <translation>Hexagon</translation>
    </message>
    <message>
        <source>Octagon</source>
        <translation>Octagon</translation>
    </message>
    <message>
        <source>Star</source>
        <translation>Star</translation>
    </message>
    <message>
        <source>Arrow Right</source>
        <translation>Arrow Right</translation>
    </message>
    <message>
        <source>Arrow Left</source>
        <translation>Arrow Left</translation>
    </message>
    <message>
        <source>Arrow Up</source>
        <translation>Arrow Up</translation>
    </message>
    <message>
        <source>Arrow Down</source>
        <translation>Arrow Down</translation>
    </message>
    <message>
        <source>Triangle Right</source>
        <translation>Triangle Right</translation>
    </message>
    <message>
        <source>Triangle Left</source>
        <translation>Triangle Left</translation>
    </message>
    <message>
        <source>Triangle Up</source>
        <translation>Triangle Up</translation>
    </message>
    <message>
        <source>Triangle Down</source>
        <translation>Triangle Down</translation>
    </message>
    <message>
        <source>Round End Bar 1</source>
        <translation>Round End Bar 1</translation>
    </message>
    <message>
        <source>Round End Bar 2</source>
        <translation>Round End Bar 2</translation>
    </message>
    <message>
        <source>Round End Bar 3</source>
        <translation>Round End Bar 3</translation>
    </message>
    <message>
        <source>Round End Bar 4</source>
        <translation>Round End Bar 4</translation>
    </message>
    <message>
        <source>Slanted End Bar 1</source>
        <translation>Slanted End Bar 1</translation>
    </message>
    <message>
        <source>Slanted End Bar 2</source>
        <translation>Slanted End Bar 2</translation>
    </message>
    <message>
        <source>Slanted End Bar 3</source>
        <translation>Slanted End Bar 3</translation>
    </message>
    <message>
        <source>Slanted End Bar 4</source>
        <translation>Slanted End Bar 4</translation>
    </message>
    <message>
        <source>Slanted End Bar 5</source>
        <translation>Slanted End Bar 5</translation>
    </message>
    <message>
        <source>S&amp;hape</source>
        <translation>S&amp;hape</translation>
    </message>
    <message>
        <source>Draw Shape</source>
        <translation>Draw Shape</translation>
    </message>
    <message>
        <source>Edit Shape</source>
        <translation>Edit Shape</translation>
    </message>
    <message>
        <source>Start Editing Shape</source>
        <translation>Start Editing Shape</translation>
    </message>
    <message>
        <source>Face</source>
        <translation>Face</translation>
    </message>
    <message>
        <source>Edge</source>
        <translation>Edge</translation>
    </message>
    <message>
        <source>Shadow</source>
        <translation>Shadow</translation>
    </message>
    <message>
        <source>%1 Colour...</source>
        <translation>%1 Colour...</translation>
    </message>
    <message>
        <source>%1 Gradient...</source>
        <translation>%1 Gradient...</translation>
    </message>
    <message>
        <source>Effects...</source>
        <translation>Effects...</translation>
    </message>
    <message>
        <source>Styles</source>
        <translation>Styles</translation>
    </message>
    <message>
        <source>Select one text to add its style.</source>
        <translation>Select one text to add its style.</translation>
    </message>
    <message>
        <source>Select one shape to add its style.</source>
        <translation>Select one shape to add its style.</translation>
    </message>
    <message>
        <source>All Formats (*.*)</source>
        <translation>All Formats (*.*)</translation>
    </message>
    <message>
        <source>Failed adding a style.</source>
        <translation>Failed adding a style.</translation>
    </message>
    <message>
        <source>Failed deleting a style.</source>
        <translation>Failed deleting a style.</translation>
    </message>
    <message>
        <source>PowerPoint Presentation (*.pptx);;PowerPoint 97-2003 Presentation(*.ppt);;OpenDocument Presentation (*.odp);;PDF (*.pdf)</source>
        <translation>PowerPoint Presentation (*.pptx);;PowerPoint 97-2003 Presentation(*.ppt);;OpenDocument Presentation (*.odp);;PDF (*.pdf)</translation>
    </message>
    <message>
        <source>LibreOffice is not installed. Install the package %1 to import presentations.</source>
        <translation>LibreOffice is not installed. Install the package %1 to import presentations.</translation>
    </message>
    <message>
        <source>LibreOffice did not finish converting the presentation in time; nothing was imported.</source>
        <translation>LibreOffice did not finish converting the presentation in time; nothing was imported.</translation>
    </message>
    <message>
        <source>The presentation could not be imported: %1</source>
        <translation>The presentation could not be imported: %1</translation>
    </message>
    <message>
        <source>Import text file.
Import Text File...</source>
        <translation>Import text file.
Import Text File...</translation>
    </message>
    <message>
        <source>Import PowerPoint file.
Import Slides...</source>
        <translation>Import PowerPoint file.
Import Slides...</translation>
    </message>
    <message>
        <source>Loading PowerPoint Slides...</source>
        <translation>Loading PowerPoint Slides...</translation>
    </message>
    <message>
        <source>Extracting %1 of %2...</source>
        <translation>Extracting %1 of %2...</translation>
    </message>
    <message>
        <source>Inserting %1 of %2...</source>
        <translation>Inserting %1 of %2...</translation>
    </message>
    <message>
        <source>&amp;Live</source>
        <translation>&amp;Live</translation>
    </message>
    <message>
        <source>Blink</source>
        <translation>Blink</translation>
    </message>
    <message>
        <source>No blink</source>
        <translation>No blink</translation>
    </message>
    <message>
        <source>Blink properties</source>
        <translation>Blink properties</translation>
    </message>
    <message>
        <source>Typing</source>
        <translation>Typing</translation>
    </message>
    <message>
        <source>No typing</source>
        <translation>No typing</translation>
    </message>
    <message>
        <source>Typing properties</source>
        <translation>Typing properties</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;About</translation>
    </message>
    <message>
        <source>Quick Access</source>
        <translation>Quick Access</translation>
    </message>
    <message>
        <source>Ribbon</source>
        <translation>Ribbon</translation>
    </message>
    <message>
        <source>Lock or Unlock</source>
        <translation>Lock or Unlock</translation>
    </message>
    <message>
        <source>Lock the selected objects, or unlock them if one is locked</source>
        <translation>Lock the selected objects, or unlock them if one is locked</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Data</translation>
    </message>
    <message>
        <source>The remote control could not start: %1</source>
        <translation>The remote control could not start: %1</translation>
    </message>
    <message>
        <source>Remote control on %1</source>
        <translation>Remote control on %1</translation>
    </message>
</context>
<context>
    <name>orv::CPageOverviewGrid</name>
    <message>
        <source>Cut</source>
        <translation>Cut</translation>
    </message>
    <message>
        <source>Roll</source>
        <translation>Roll</translation>
    </message>
    <message>
        <source>Crawl</source>
        <translation>Crawl</translation>
    </message>
    <message>
        <source>In: %1  Out: %2</source>
        <translation>In: %1  Out: %2</translation>
    </message>
</context>
<context>
    <name>orv::CPageThumbs</name>
    <message>
        <source>New Page</source>
        <translation>New Page</translation>
    </message>
    <message>
        <source>Delete Page</source>
        <translation>Delete Page</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Cu&amp;t</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copy</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Paste</translation>
    </message>
    <message>
        <source>New page</source>
        <translation>New page</translation>
    </message>
</context>
<context>
    <name>orv::CPlayDlg</name>
    <message>
        <source> (discarded)</source>
        <translation> (discarded)</translation>
    </message>
    <message>
        <source>Page %1</source>
        <translation>Page %1</translation>
    </message>
</context>
<context>
    <name>orv::CPlayTextDlg</name>
    <message>
        <source>Page %1</source>
        <translation>Page %1</translation>
    </message>
</context>
<context>
    <name>orv::CProgramMonitor</name>
    <message>
        <source>Program Monitor</source>
        <translation>Program Monitor</translation>
    </message>
    <message>
        <source>Checkerboard</source>
        <translation>Checkerboard</translation>
    </message>
    <message>
        <source>Colour...</source>
        <translation>Colour...</translation>
    </message>
    <message>
        <source>Picture...</source>
        <translation>Picture...</translation>
    </message>
    <message>
        <source>Monitor Background</source>
        <translation>Monitor Background</translation>
    </message>
    <message>
        <source>Pictures (*.png *.jpg *.jpeg *.bmp *.gif *.tif *.tiff)</source>
        <translation>Pictures (*.png *.jpg *.jpeg *.bmp *.gif *.tif *.tiff)</translation>
    </message>
</context>
<context>
    <name>orv::CPropAuto</name>
    <message>
        <source>PROGRAM</source>
        <translation>PROGRAM</translation>
    </message>
    <message>
        <source>PREVIEW</source>
        <translation>PREVIEW</translation>
    </message>
    <message>
        <source>Run (ENTER)</source>
        <translation>Run (ENTER)</translation>
    </message>
    <message>
        <source>Stop (*)</source>
        <translation>Stop (*)</translation>
    </message>
    <message>
        <source>Erase (F12)</source>
        <translation>Erase (F12)</translation>
    </message>
    <message>
        <source>Fast (+)</source>
        <translation>Fast (+)</translation>
    </message>
    <message>
        <source>Slow (-)</source>
        <translation>Slow (-)</translation>
    </message>
    <message>
        <source>Start:</source>
        <translation>Start:</translation>
    </message>
    <message>
        <source>End:</source>
        <translation>End:</translation>
    </message>
    <message>
        <source>Repeat:</source>
        <translation>Repeat:</translation>
    </message>
    <message>
        <source>MoveTo:</source>
        <translation>MoveTo:</translation>
    </message>
    <message>
        <source>Ignore discarded</source>
        <translation>Ignore discarded</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manual</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
    <message>
        <source>ON AIR: page %1</source>
        <translation>ON AIR: page %1</translation>
    </message>
    <message>
        <source>Blink</source>
        <translation>Blink</translation>
    </message>
    <message>
        <source>Animation</source>
        <translation>Animation</translation>
    </message>
    <message>
        <source>Next: Animation</source>
        <translation>Next: Animation</translation>
    </message>
    <message>
        <source>Next: Blink</source>
        <translation>Next: Blink</translation>
    </message>
</context>
<context>
    <name>orv::CPropAutoA</name>
    <message>
        <source>Run</source>
        <translation>Run</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Erase</translation>
    </message>
    <message>
        <source>ON AIR</source>
        <translation>ON AIR</translation>
    </message>
    <message>
        <source>PREVIEW</source>
        <translation>PREVIEW</translation>
    </message>
    <message>
        <source>Page %1</source>
        <translation>Page %1</translation>
    </message>
</context>
<context>
    <name>orv::CRibbonGallery</name>
    <message>
        <source>More</source>
        <translation>More</translation>
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
    <name>orv::CStyleGallery</name>
    <message>
        <source>Add</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
</context>
<context>
    <name>orv::CStylesPane</name>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>Shape</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Color</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Background</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Picture</translation>
    </message>
    <message>
        <source>Fill</source>
        <translation>Fill</translation>
    </message>
    <message>
        <source>Edge</source>
        <translation>Edge</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>Outline</translation>
    </message>
    <message>
        <source>Shadow</source>
        <translation>Shadow</translation>
    </message>
</context>
<context>
    <name>orv::CTabControl</name>
    <message>
        <source>Take commands from automation in play mode</source>
        <translation>Take commands from automation in play mode</translation>
    </message>
    <message>
        <source>This computer only (127.0.0.1)</source>
        <translation>This computer only (127.0.0.1)</translation>
    </message>
    <message>
        <source>Any network address</source>
        <translation>Any network address</translation>
    </message>
    <message>
        <source>Listen on:</source>
        <translation>Listen on:</translation>
    </message>
    <message>
        <source>Command line port:</source>
        <translation>Command line port:</translation>
    </message>
    <message>
        <source>HTTP port:</source>
        <translation>HTTP port:</translation>
    </message>
    <message>
        <source>Token:</source>
        <translation>Token:</translation>
    </message>
    <message>
        <source>The two ports must differ.</source>
        <translation>The two ports must differ.</translation>
    </message>
    <message>
        <source>A token is needed to listen on the network.</source>
        <translation>A token is needed to listen on the network.</translation>
    </message>
    <message>
        <source>Programs on this computer may drive play mode without a token.</source>
        <translation>Programs on this computer may drive play mode without a token.</translation>
    </message>
    <message>
        <source>Every client gives the token first: AUTH on the command line port, a Bearer header over HTTP.</source>
        <translation>Every client gives the token first: AUTH on the command line port, a Bearer header over HTTP.</translation>
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
    <message>
        <source>The project has no folder yet.</source>
        <translation>The project has no folder yet.</translation>
    </message>
    <message>
        <source>Failed copying files.</source>
        <translation>Failed copying files.</translation>
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
