<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko_KR">
<context>
    <name>orv::CMainFrame</name>
    <message>
        <source>Show all pages as large thumbnails
Page Overview</source>
        <translation>모든 페이지를 큰 미리 보기로 표시
페이지 개요</translation>
    </message>
    <message>
        <source>Find the specified text
Find</source>
        <translation>지정한 텍스트 찾기
찾기</translation>
    </message>
    <message>
        <source>Jump to specific page
Jump To Page</source>
        <translation>지정한 페이지로 이동
페이지로 이동</translation>
    </message>
    <message>
        <source>Go to the previous page
Previous Page</source>
        <translation>이전 페이지로 이동
이전 페이지</translation>
    </message>
    <message>
        <source>Go to the next page
Next Page</source>
        <translation>다음 페이지로 이동
다음 페이지</translation>
    </message>
    <message>
        <source>End the edit and select objects
End Edit</source>
        <translation>편집을 끝내고 개체 선택
편집 끝내기</translation>
    </message>
    <message>
        <source>Select the next object
Next Object</source>
        <translation>다음 개체 선택
다음 개체</translation>
    </message>
    <message>
        <source>Select the previous object
Previous Object</source>
        <translation>이전 개체 선택
이전 개체</translation>
    </message>
    <message>
        <source>Select the entire object
Select All</source>
        <translation>모든 개체 선택
모두 선택</translation>
    </message>
</context>
<context>
    <name>CQRDObjectTC</name>
    <message>
        <source>Sunday</source>
        <translation>일요일</translation>
    </message>
    <message>
        <source>Monday</source>
        <translation>월요일</translation>
    </message>
    <message>
        <source>Tuesday</source>
        <translation>화요일</translation>
    </message>
    <message>
        <source>Wednesday</source>
        <translation>수요일</translation>
    </message>
    <message>
        <source>Thursday</source>
        <translation>목요일</translation>
    </message>
    <message>
        <source>Friday</source>
        <translation>금요일</translation>
    </message>
    <message>
        <source>Saturday</source>
        <translation>토요일</translation>
    </message>
    <message>
        <source>AM</source>
        <translation>오전</translation>
    </message>
    <message>
        <source>PM</source>
        <translation>오후</translation>
    </message>
</context>
<context>
    <name>orv::CAutoDlg</name>
    <message>
        <source>Play Out</source>
        <translation>송출 목록</translation>
    </message>
    <message>
        <source>Logo</source>
        <translation>로고</translation>
    </message>
</context>
<context>
    <name>orv::CDataPane</name>
    <message>
        <source>Field</source>
        <translation>필드</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>값</translation>
    </message>
    <message>
        <source>New data on air:</source>
        <translation>방송 중 새 데이터:</translation>
    </message>
    <message>
        <source>Change in place</source>
        <translation>제자리에서 바꾸기</translation>
    </message>
    <message>
        <source>Take again</source>
        <translation>다시 내보내기</translation>
    </message>
    <message>
        <source>Rows from CSV...</source>
        <translation>CSV에서 행 가져오기...</translation>
    </message>
    <message>
        <source>No Rows</source>
        <translation>행 없애기</translation>
    </message>
    <message>
        <source>No page.</source>
        <translation>페이지가 없습니다.</translation>
    </message>
    <message>
        <source>This page has no fields: type {{name}} in a text.</source>
        <translation>이 페이지에는 필드가 없습니다: 텍스트에 {{name}}을(를) 입력하십시오.</translation>
    </message>
    <message>
        <source>No rows</source>
        <translation>행 없음</translation>
    </message>
    <message>
        <source>%1: next row %2 of %3</source>
        <translation>%1: 다음 행 %2 / %3</translation>
    </message>
    <message>
        <source>Rows from CSV</source>
        <translation>CSV에서 행 가져오기</translation>
    </message>
    <message>
        <source>CSV Files (*.csv)</source>
        <translation>CSV 파일 (*.csv)</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>데이터</translation>
    </message>
    <message>
        <source>Save the project first: its rows are kept beside it.</source>
        <translation>먼저 프로젝트를 저장하십시오: 행 파일은 프로젝트 옆에 보관됩니다.</translation>
    </message>
    <message>
        <source>%1 cannot be used: %2</source>
        <translation>%1을(를) 사용할 수 없습니다: %2</translation>
    </message>
    <message>
        <source>%1 cannot be used: its name starts with a dot.</source>
        <translation>%1을(를) 사용할 수 없습니다: 이름이 점으로 시작합니다.</translation>
    </message>
    <message>
        <source>%1 cannot be copied into the project&apos;s folder.</source>
        <translation>%1을(를) 프로젝트 폴더에 복사할 수 없습니다.</translation>
    </message>
</context>
<context>
    <name>orv::CDlgBlink</name>
    <message>
        <source>Blink properties</source>
        <translation>깜빡임 속성</translation>
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
        <translation>모드:</translation>
    </message>
    <message>
        <source>Colour:</source>
        <translation>색:</translation>
    </message>
    <message>
        <source>Speed:</source>
        <translation>속도:</translation>
    </message>
</context>
<context>
    <name>orv::CDlgConfigDecklink</name>
    <message>
        <source>Hardware Configuration</source>
        <translation>하드웨어 설정</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>장치</translation>
    </message>
    <message>
        <source>Video Format</source>
        <translation>비디오 형식</translation>
    </message>
    <message>
        <source>Audio Format</source>
        <translation>오디오 형식</translation>
    </message>
    <message>
        <source>Keying</source>
        <translation>키잉</translation>
    </message>
    <message>
        <source>Internal</source>
        <translation>내부</translation>
    </message>
    <message>
        <source>External</source>
        <translation>외부</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>출력</translation>
    </message>
    <message>
        <source>Card</source>
        <translation>카드</translation>
    </message>
    <message>
        <source>Clock only, no picture</source>
        <translation>시계만 (화면 없음)</translation>
    </message>
    <message>
        <source>Program monitor</source>
        <translation>프로그램 모니터</translation>
    </message>
    <message>
        <source>File (lossless, fill and key)</source>
        <translation>파일 (무손실, 필과 키)</translation>
    </message>
    <message>
        <source>SRT stream (fill over black)</source>
        <translation>SRT 스트림 (검정 위의 필)</translation>
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
        <translation>출력 파일</translation>
    </message>
    <message>
        <source>Matroska Files (*.mkv)</source>
        <translation>Matroska 파일 (*.mkv)</translation>
    </message>
</context>
<context>
    <name>orv::CDlgEffectSizes</name>
    <message>
        <source>Effects</source>
        <translation>효과</translation>
    </message>
    <message>
        <source>Edge:</source>
        <translation>테두리:</translation>
    </message>
    <message>
        <source>Outline:</source>
        <translation>외곽선:</translation>
    </message>
    <message>
        <source>Edge softness:</source>
        <translation>테두리 부드럽게:</translation>
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
        <translation>그림자:</translation>
    </message>
    <message>
        <source>Shadow X:</source>
        <translation>그림자 X:</translation>
    </message>
    <message>
        <source>Shadow Y:</source>
        <translation>그림자 Y:</translation>
    </message>
    <message>
        <source>Shadow softness:</source>
        <translation>그림자 부드럽게:</translation>
    </message>
</context>
<context>
    <name>orv::CDlgFind</name>
    <message>
        <source>&amp;Up</source>
        <translation>위로(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Down</source>
        <translation>아래로(&amp;D)</translation>
    </message>
    <message>
        <source>Match &amp;case</source>
        <translation>대/소문자 구분(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Find Next</source>
        <translation>다음 찾기(&amp;F)</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>찾기</translation>
    </message>
    <message>
        <source>Fi&amp;nd what:</source>
        <translation>찾을 내용(&amp;N):</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>방향</translation>
    </message>
    <message>
        <source>can not be found.</source>
        <translation>을(를) 찾을 수 없습니다.</translation>
    </message>
</context>
<context>
    <name>orv::CDlgGradient</name>
    <message>
        <source>Gradient</source>
        <translation>그라데이션</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>선형</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>패스</translation>
    </message>
    <message>
        <source>Old</source>
        <translation>이전</translation>
    </message>
    <message>
        <source>New</source>
        <translation>새 색</translation>
    </message>
    <message>
        <source>Gradient type</source>
        <translation>그라데이션 종류</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>각도</translation>
    </message>
    <message>
        <source>Alpha</source>
        <translation>알파</translation>
    </message>
</context>
<context>
    <name>orv::CDlgJump</name>
    <message>
        <source>Move to Page</source>
        <translation>페이지 이동</translation>
    </message>
    <message>
        <source>Page:</source>
        <translation>페이지:</translation>
    </message>
</context>
<context>
    <name>orv::CDlgOpenPrj</name>
    <message>
        <source>Open Project</source>
        <translation>프로젝트 열기</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>위치:</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>프로젝트</translation>
    </message>
    <message>
        <source>Created</source>
        <translation>만든 날짜</translation>
    </message>
    <message>
        <source>Modified</source>
        <translation>수정한 날짜</translation>
    </message>
    <message>
        <source>Project Name:</source>
        <translation>프로젝트 이름:</translation>
    </message>
    <message>
        <source>Pages:</source>
        <translation>페이지 수:</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>미리 보기</translation>
    </message>
    <message>
        <source>Please select a project.</source>
        <translation>프로젝트를 선택하십시오.</translation>
    </message>
</context>
<context>
    <name>orv::CDlgOptions</name>
    <message>
        <source>Options</source>
        <translation>옵션</translation>
    </message>
    <message>
        <source>Program Settings</source>
        <translation>프로그램 설정</translation>
    </message>
    <message>
        <source>Edit Options</source>
        <translation>편집 옵션</translation>
    </message>
    <message>
        <source>Remote Control</source>
        <translation>원격 제어</translation>
    </message>
</context>
<context>
    <name>orv::CDlgPageOverview</name>
    <message>
        <source>Page Overview</source>
        <translation>페이지 개요</translation>
    </message>
</context>
<context>
    <name>orv::CDlgPrj</name>
    <message>
        <source>New Project</source>
        <translation>새 프로젝트</translation>
    </message>
    <message>
        <source>Save Project As</source>
        <translation>다른 이름으로 프로젝트 저장</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>위치:</translation>
    </message>
    <message>
        <source>Project name:</source>
        <translation>프로젝트 이름:</translation>
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
        <translation>같은 이름의 프로젝트가 이미 있습니다. 프로젝트 이름을 다시 입력하십시오.</translation>
    </message>
</context>
<context>
    <name>orv::CDlgProgress</name>
    <message>
        <source>Converting...</source>
        <translation>변환 중...</translation>
    </message>
</context>
<context>
    <name>orv::CDlgPropAni</name>
    <message>
        <source>Animation Properties</source>
        <translation>애니메이션 속성</translation>
    </message>
    <message>
        <source>FPS:</source>
        <translation>FPS:</translation>
    </message>
    <message>
        <source>Repeat:</source>
        <translation>반복:</translation>
    </message>
</context>
<context>
    <name>orv::CDlgPropTC</name>
    <message>
        <source>Timer/Counter Properties</source>
        <translation>타이머/카운터 속성</translation>
    </message>
    <message>
        <source>Timer/Counter</source>
        <translation>타이머/카운터</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>시계</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>형식:</translation>
    </message>
    <message>
        <source>Start:</source>
        <translation>시작:</translation>
    </message>
    <message>
        <source>End:</source>
        <translation>끝:</translation>
    </message>
    <message>
        <source>24 hours</source>
        <translation>24시간</translation>
    </message>
    <message>
        <source>Preview:</source>
        <translation>미리 보기:</translation>
    </message>
</context>
<context>
    <name>orv::CDlgRetrText</name>
    <message>
        <source>Import Text File</source>
        <translation>텍스트 파일 가져오기</translation>
    </message>
    <message>
        <source>Left margin:</source>
        <translation>왼쪽 여백:</translation>
    </message>
    <message>
        <source>Right margin:</source>
        <translation>오른쪽 여백:</translation>
    </message>
    <message>
        <source>Lines Per Page:</source>
        <translation>페이지당 줄 수:</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>열기...</translation>
    </message>
    <message>
        <source>Append Pages</source>
        <translation>맨 뒤에 페이지 추가</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>삽입</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>열기</translation>
    </message>
    <message>
        <source>Text File (*.txt)</source>
        <translation>텍스트 파일 (*.txt)</translation>
    </message>
</context>
<context>
    <name>orv::CDlgTyping</name>
    <message>
        <source>Typing properties</source>
        <translation>타이핑 속성</translation>
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
        <translation>모드:</translation>
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
        <translation>순서:</translation>
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
        <translation>애니메이션과 연속 그림 (*.ani32 *.ANI32 *.qrdani *.QRDANI *.avi *.mov *.mp4 *.mkv *.webm *.mxf *.tga *.png);;ANI32 (*.ani32 *.ANI32);;QRDANI (*.qrdani *.QRDANI);;동영상 (*.avi *.mov *.mp4 *.mkv *.webm *.mxf);;연속 그림 (*.tga *.png)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>열기</translation>
    </message>
    <message>
        <source>Failed converting TGA(PNG) sequence files to animation file.</source>
        <translation>TGA(PNG) 연속 파일을 애니메이션 파일로 변환하지 못했습니다.</translation>
    </message>
    <message>
        <source>Failed inserting animation file</source>
        <translation>애니메이션 파일을 삽입하지 못했습니다</translation>
    </message>
    <message>
        <source>O&amp;utput</source>
        <translation>출력(&amp;U)</translation>
    </message>
    <message>
        <source>Hardware Configuration
Configure</source>
        <translation>하드웨어 설정
설정</translation>
    </message>
    <message>
        <source>Reset the graphic board
Reset</source>
        <translation>그래픽 보드 초기화
초기화</translation>
    </message>
    <message>
        <source>Put colour bars and a key ramp on the output
Test Card</source>
        <translation>출력에 컬러 바와 키 램프 내보내기
테스트 카드</translation>
    </message>
    <message>
        <source>Show what the output sends
Program Monitor</source>
        <translation>출력으로 나가는 화면 보기
프로그램 모니터</translation>
    </message>
    <message>
        <source>The output %1 failed (%2); frames go to the clock-paced output.</source>
        <translation>출력 %1이(가) 실패했습니다(%2). 프레임은 시계에 맞춘 출력으로 보냅니다.</translation>
    </message>
    <message>
        <source>To apply changes, the program must be restarted. Terminate program?</source>
        <translation>변경 사항을 적용하려면 프로그램을 다시 시작해야 합니다. 프로그램을 종료하시겠습니까?</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>편집(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>실행 취소(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>다시 실행(&amp;R)</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>잘라내기(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>복사(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>붙여넣기(&amp;P)</translation>
    </message>
    <message>
        <source>Pictures (*.bmp *.jpg *.jpeg *.png *.tga *.tif *.tiff *.gif);;BMP (*.bmp);;JPEG (*.jpg *.jpeg);;PNG (*.png);;TGA (*.tga);;TIFF (*.tif *.tiff);;GIF (*.gif)</source>
        <translation>그림 (*.bmp *.jpg *.jpeg *.png *.tga *.tif *.tiff *.gif);;BMP (*.bmp);;JPEG (*.jpg *.jpeg);;PNG (*.png);;TGA (*.tga);;TIFF (*.tif *.tiff);;GIF (*.gif)</translation>
    </message>
    <message>
        <source>&amp;Insert</source>
        <translation>삽입(&amp;I)</translation>
    </message>
    <message>
        <source>Insert a picture file
Picture...</source>
        <translation>그림 파일 삽입
그림...</translation>
    </message>
    <message>
        <source>Insert a background picture
Background...</source>
        <translation>배경 그림 삽입
배경...</translation>
    </message>
    <message>
        <source>Erase the background picture
Erase Background</source>
        <translation>배경 그림 지우기
배경 지우기</translation>
    </message>
    <message>
        <source>Insert a background picture on every page
Background to All Pages...</source>
        <translation>모든 페이지에 배경 그림 넣기
모든 페이지에 배경...</translation>
    </message>
    <message>
        <source>Insert animation
Animation...</source>
        <translation>애니메이션 삽입
애니메이션...</translation>
    </message>
    <message>
        <source>Insert a timer, counter or clock
Insert Timer/Counter</source>
        <translation>타이머, 카운터 또는 시계 삽입
타이머/카운터 삽입</translation>
    </message>
    <message>
        <source>Timer/Counter properties
Timer/Counter Properties...</source>
        <translation>타이머/카운터 속성
타이머/카운터 속성...</translation>
    </message>
    <message>
        <source>Timers</source>
        <translation>타이머</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>일시 정지</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>계속</translation>
    </message>
    <message>
        <source>Restart</source>
        <translation>다시 시작</translation>
    </message>
    <message>
        <source>Set...</source>
        <translation>설정...</translation>
    </message>
    <message>
        <source>Set Timers</source>
        <translation>타이머 설정</translation>
    </message>
    <message>
        <source>Animation properties
Animation Properties...</source>
        <translation>애니메이션 속성
애니메이션 속성...</translation>
    </message>
    <message>
        <source>Play the selected animation through on the canvas
Preview Animation</source>
        <translation>선택한 애니메이션을 캔버스에서 끝까지 재생
애니메이션 미리보기</translation>
    </message>
    <message>
        <source>Start keying
Start Keying</source>
        <translation>키잉 시작
키잉 시작</translation>
    </message>
    <message>
        <source>Reset key value
Reset Key</source>
        <translation>키 값 초기화
키 초기화</translation>
    </message>
    <message>
        <source>Alpha value for selected picture
Picture Alpha...</source>
        <translation>선택한 그림의 알파 값
그림 알파...</translation>
    </message>
    <message>
        <source>Group objects
Group</source>
        <translation>개체 그룹화
그룹</translation>
    </message>
    <message>
        <source>Ungroup objects
Ungroup</source>
        <translation>개체 그룹 해제
그룹 해제</translation>
    </message>
    <message>
        <source>Failed loading picture.</source>
        <translation>그림을 불러오지 못했습니다.</translation>
    </message>
    <message>
        <source>Alpha</source>
        <translation>알파</translation>
    </message>
    <message>
        <source>Alpha (0 to 255):</source>
        <translation>알파 (0~255):</translation>
    </message>
    <message>
        <source>Initializing...</source>
        <translation>초기화 중...</translation>
    </message>
    <message>
        <source>Loading fonts, icons, styles, ribbon menu...</source>
        <translation>글꼴, 아이콘, 스타일, 리본 메뉴를 불러오는 중...</translation>
    </message>
    <message>
        <source>Initializing docking panes...</source>
        <translation>도킹 창을 초기화하는 중...</translation>
    </message>
    <message>
        <source>Initializing hardware....</source>
        <translation>하드웨어를 초기화하는 중....</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>파일(&amp;F)</translation>
    </message>
    <message>
        <source>Export page to Image (TGA 32)</source>
        <translation>페이지를 이미지로 내보내기 (TGA 32)</translation>
    </message>
    <message>
        <source>Save to TGA 32bit image.</source>
        <translation>32비트 TGA 이미지로 저장합니다.</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>끝내기(&amp;X)</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>옵션(&amp;O)...</translation>
    </message>
    <message>
        <source>Slide</source>
        <translation>슬라이드</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>외곽선</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>송출</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>텍스트</translation>
    </message>
    <message>
        <source>Bring objects to front
Bring to Front</source>
        <translation>개체를 맨 앞으로 가져오기
맨 앞으로 가져오기</translation>
    </message>
    <message>
        <source>Send objects to back
Send to Back</source>
        <translation>개체를 맨 뒤로 보내기
맨 뒤로 보내기</translation>
    </message>
    <message>
        <source>Bring objects forward
Bring Forward</source>
        <translation>개체를 앞으로 가져오기
앞으로 가져오기</translation>
    </message>
    <message>
        <source>Send objects backward
Send Backward</source>
        <translation>개체를 뒤로 보내기
뒤로 보내기</translation>
    </message>
    <message>
        <source>Align objects to left
Align objects to left</source>
        <translation>개체 왼쪽 맞춤
개체 왼쪽 맞춤</translation>
    </message>
    <message>
        <source>Align objects to right
Align objects to right</source>
        <translation>개체 오른쪽 맞춤
개체 오른쪽 맞춤</translation>
    </message>
    <message>
        <source>Align objects to top
Align objects to top</source>
        <translation>개체 위쪽 맞춤
개체 위쪽 맞춤</translation>
    </message>
    <message>
        <source>Align objects to bottom
Align objects to bottom</source>
        <translation>개체 아래쪽 맞춤
개체 아래쪽 맞춤</translation>
    </message>
    <message>
        <source>Align objects to center
Align to center</source>
        <translation>개체 가운데 맞춤
가운데 맞춤</translation>
    </message>
    <message>
        <source>Align objects to horizontal center
Align objects to horizontal center</source>
        <translation>개체 가로 가운데 맞춤
개체 가로 가운데 맞춤</translation>
    </message>
    <message>
        <source>Align objects to vertical center
Align objects to vertical center</source>
        <translation>개체 세로 가운데 맞춤
개체 세로 가운데 맞춤</translation>
    </message>
    <message>
        <source>Align to left
Align to left</source>
        <translation>왼쪽 안전선에 맞춤
왼쪽 안전선에 맞춤</translation>
    </message>
    <message>
        <source>Align to right
Align to right</source>
        <translation>오른쪽 안전선에 맞춤
오른쪽 안전선에 맞춤</translation>
    </message>
    <message>
        <source>Align to top
Align to top</source>
        <translation>위쪽 안전선에 맞춤
위쪽 안전선에 맞춤</translation>
    </message>
    <message>
        <source>Align to bottom
Align to bottom</source>
        <translation>아래쪽 안전선에 맞춤
아래쪽 안전선에 맞춤</translation>
    </message>
    <message>
        <source>&amp;Arrange</source>
        <translation>정렬(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Page</source>
        <translation>페이지(&amp;P)</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>컷</translation>
    </message>
    <message>
        <source>Roll</source>
        <translation>롤</translation>
    </message>
    <message>
        <source>Crawl</source>
        <translation>크롤</translation>
    </message>
    <message>
        <source>New Page</source>
        <translation>새 페이지</translation>
    </message>
    <message>
        <source>Delete Page</source>
        <translation>페이지 삭제</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>이전 페이지</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>다음 페이지</translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation>텍스트(&amp;T)</translation>
    </message>
    <message>
        <source>Edit Text.
Text</source>
        <translation>텍스트를 편집합니다.
텍스트</translation>
    </message>
    <message>
        <source>Select an Object.
Select</source>
        <translation>개체를 선택합니다.
선택</translation>
    </message>
    <message>
        <source>Choose the font of the text.
Font...</source>
        <translation>텍스트의 글꼴을 고릅니다.
글꼴...</translation>
    </message>
    <message>
        <source>Choose the size of the text.
Font Size...</source>
        <translation>텍스트의 크기를 고릅니다.
글꼴 크기...</translation>
    </message>
    <message>
        <source>Split text into lines
Split into Lines</source>
        <translation>텍스트를 줄 단위로 나눕니다
줄로 나누기</translation>
    </message>
    <message>
        <source>Split text into characters
Split into Characters</source>
        <translation>텍스트를 글자 단위로 나눕니다
글자로 나누기</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>글꼴</translation>
    </message>
    <message>
        <source>Font:</source>
        <translation>글꼴:</translation>
    </message>
    <message>
        <source>Font Size</source>
        <translation>글꼴 크기</translation>
    </message>
    <message>
        <source>Size (points):</source>
        <translation>크기(포인트):</translation>
    </message>
    <message>
        <source>Objects within the page will be lost. Do you wish to proceed?</source>
        <translation>페이지 안의 개체가 모두 삭제됩니다. 계속하시겠습니까?</translation>
    </message>
    <message>
        <source>The image path is empty or invalid, please reset the path.</source>
        <translation>이미지 경로가 비어 있거나 올바르지 않습니다. 경로를 다시 지정하십시오.</translation>
    </message>
    <message>
        <source>To apply language setting, the program must be restarted. Terminate program?</source>
        <translation>언어 설정을 적용하려면 프로그램을 다시 시작해야 합니다. 프로그램을 종료하시겠습니까?</translation>
    </message>
    <message>
        <source>TGA Files(*.TGA)</source>
        <translation>TGA 파일(*.TGA)</translation>
    </message>
    <message>
        <source>The page could not be written to %1.</source>
        <translation>페이지를 %1에 저장하지 못했습니다.</translation>
    </message>
    <message>
        <source>Please stop automatic play out to exit play mode.</source>
        <translation>송출 모드를 끝내려면 자동 송출을 먼저 정지하십시오.</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>송출(&amp;P)</translation>
    </message>
    <message>
        <source>Play Mode
Play Mode</source>
        <translation>송출 모드
송출 모드</translation>
    </message>
    <message>
        <source>Open or close the play window
Play Window</source>
        <translation>송출 창을 열거나 닫습니다
송출 창</translation>
    </message>
    <message>
        <source>Erase output
Erase Output
Erase</source>
        <translation>출력 지우기
출력 지우기
지우기</translation>
    </message>
    <message>
        <source>Discard current page for play out.
Discard</source>
        <translation>현재 페이지를 송출에서 제외합니다.
제외</translation>
    </message>
    <message>
        <source>Play Out</source>
        <translation>송출 목록</translation>
    </message>
    <message>
        <source>Project files (*.qrdprj);;All files (*)</source>
        <translation>프로젝트 파일 (*.qrdprj);;모든 파일 (*)</translation>
    </message>
    <message>
        <source>&amp;New Project...</source>
        <translation>새 프로젝트(&amp;N)...</translation>
    </message>
    <message>
        <source>&amp;Open Project...</source>
        <translation>프로젝트 열기(&amp;O)...</translation>
    </message>
    <message>
        <source>Open Project &amp;File...</source>
        <translation>프로젝트 파일 열기(&amp;F)...</translation>
    </message>
    <message>
        <source>S&amp;witch Project</source>
        <translation>프로젝트 전환(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>저장(&amp;S)</translation>
    </message>
    <message>
        <source>Save Project &amp;As...</source>
        <translation>다른 이름으로 프로젝트 저장(&amp;A)...</translation>
    </message>
    <message>
        <source>&amp;Close Project</source>
        <translation>프로젝트 닫기(&amp;C)</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>(없음)</translation>
    </message>
    <message>
        <source>The project %1 could not be opened:
%2</source>
        <translation>프로젝트 %1을(를) 열 수 없습니다:
%2</translation>
    </message>
    <message>
        <source>Program was not closed properly.
Recovering from the last modification.</source>
        <translation>프로그램이 정상적으로 종료되지 않았습니다.
마지막 수정 내용으로 복구합니다.</translation>
    </message>
    <message>
        <source>Open Project File</source>
        <translation>프로젝트 파일 열기</translation>
    </message>
    <message>
        <source>Failed to create project.</source>
        <translation>프로젝트를 만들지 못했습니다.</translation>
    </message>
    <message>
        <source> is saved.</source>
        <translation> 파일이 저장되었습니다.</translation>
    </message>
    <message>
        <source>The project could not be saved:
%1</source>
        <translation>프로젝트를 저장할 수 없습니다:
%1</translation>
    </message>
    <message>
        <source>Failed copying files.</source>
        <translation>파일을 복사하지 못했습니다.</translation>
    </message>
    <message>
        <source>Save the changes?</source>
        <translation>변경 내용을 저장하시겠습니까?</translation>
    </message>
    <message>
        <source>Please exit play mode to close project.</source>
        <translation>프로젝트를 닫으려면 송출 모드를 끝내십시오.</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>사각형</translation>
    </message>
    <message>
        <source>Rounded Rectangle</source>
        <translation>둥근 사각형</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>타원</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>원</translation>
    </message>
    <message>
        <source>Slanted Bar Left</source>
        <translation>타이틀 바 (왼쪽 기울임)</translation>
    </message>
    <message>
        <source>Slanted Bar Right</source>
        <translation>타이틀 바 (오른쪽 기울임)</translation>
    </message>
    <message>
        <source>Diamond</source>
        <translation>마름모</translation>
    </message>
    <message>
        <source>Pentagon</source>
        <translation>오각형</translation>
    </message>
    <message>
        <source>Hexagon</source>
        <translation>육각형</translation>
    </message>
    <message>
        <source>Octagon</source>
        <translation>팔각형</translation>
    </message>
    <message>
        <source>Star</source>
        <translation>별</translation>
    </message>
    <message>
        <source>Arrow Right</source>
        <translation>오른쪽 화살표</translation>
    </message>
    <message>
        <source>Arrow Left</source>
        <translation>왼쪽 화살표</translation>
    </message>
    <message>
        <source>Arrow Up</source>
        <translation>위쪽 화살표</translation>
    </message>
    <message>
        <source>Arrow Down</source>
        <translation>아래쪽 화살표</translation>
    </message>
    <message>
        <source>Triangle Right</source>
        <translation>오른쪽 삼각형</translation>
    </message>
    <message>
        <source>Triangle Left</source>
        <translation>왼쪽 삼각형</translation>
    </message>
    <message>
        <source>Triangle Up</source>
        <translation>위쪽 삼각형</translation>
    </message>
    <message>
        <source>Triangle Down</source>
        <translation>아래쪽 삼각형</translation>
    </message>
    <message>
        <source>Round End Bar 1</source>
        <translation>타이틀 바 (둥근 끝) 1</translation>
    </message>
    <message>
        <source>Round End Bar 2</source>
        <translation>타이틀 바 (둥근 끝) 2</translation>
    </message>
    <message>
        <source>Round End Bar 3</source>
        <translation>타이틀 바 (둥근 끝) 3</translation>
    </message>
    <message>
        <source>Round End Bar 4</source>
        <translation>타이틀 바 (둥근 끝) 4</translation>
    </message>
    <message>
        <source>Slanted End Bar 1</source>
        <translation>타이틀 바 (기울인 끝) 1</translation>
    </message>
    <message>
        <source>Slanted End Bar 2</source>
        <translation>타이틀 바 (기울인 끝) 2</translation>
    </message>
    <message>
        <source>Slanted End Bar 3</source>
        <translation>타이틀 바 (기울인 끝) 3</translation>
    </message>
    <message>
        <source>Slanted End Bar 4</source>
        <translation>타이틀 바 (기울인 끝) 4</translation>
    </message>
    <message>
        <source>Slanted End Bar 5</source>
        <translation>타이틀 바 (기울인 끝) 5</translation>
    </message>
    <message>
        <source>S&amp;hape</source>
        <translation>도형(&amp;H)</translation>
    </message>
    <message>
        <source>Draw Shape</source>
        <translation>도형 그리기</translation>
    </message>
    <message>
        <source>Edit Shape</source>
        <translation>도형 편집</translation>
    </message>
    <message>
        <source>Start Editing Shape</source>
        <translation>도형 편집 시작</translation>
    </message>
    <message>
        <source>Face</source>
        <translation>면</translation>
    </message>
    <message>
        <source>Edge</source>
        <translation>테두리</translation>
    </message>
    <message>
        <source>Shadow</source>
        <translation>그림자</translation>
    </message>
    <message>
        <source>%1 Colour...</source>
        <translation>%1 색...</translation>
    </message>
    <message>
        <source>%1 Gradient...</source>
        <translation>%1 그라데이션...</translation>
    </message>
    <message>
        <source>Effects...</source>
        <translation>효과...</translation>
    </message>
    <message>
        <source>Styles</source>
        <translation>스타일</translation>
    </message>
    <message>
        <source>Select one text to add its style.</source>
        <translation>스타일을 가져올 텍스트를 하나 선택하십시오.</translation>
    </message>
    <message>
        <source>Select one shape to add its style.</source>
        <translation>스타일을 가져올 도형을 하나 선택하십시오.</translation>
    </message>
    <message>
        <source>All Formats (*.*)</source>
        <translation>모든 형식 (*.*)</translation>
    </message>
    <message>
        <source>Failed adding a style.</source>
        <translation>스타일을 추가하지 못했습니다.</translation>
    </message>
    <message>
        <source>Failed deleting a style.</source>
        <translation>스타일을 삭제하지 못했습니다.</translation>
    </message>
    <message>
        <source>PowerPoint Presentation (*.pptx);;PowerPoint 97-2003 Presentation(*.ppt);;OpenDocument Presentation (*.odp);;PDF (*.pdf)</source>
        <translation>파워포인트 프레젠테이션 (*.pptx);;파워포인트 97-2003 프레젠테이션(*.ppt);;OpenDocument 프레젠테이션 (*.odp);;PDF (*.pdf)</translation>
    </message>
    <message>
        <source>LibreOffice is not installed. Install the package %1 to import presentations.</source>
        <translation>LibreOffice가 설치되어 있지 않습니다. 프레젠테이션을 가져오려면 %1 패키지를 설치하십시오.</translation>
    </message>
    <message>
        <source>LibreOffice did not finish converting the presentation in time; nothing was imported.</source>
        <translation>LibreOffice가 제시간에 프레젠테이션 변환을 끝내지 못해 아무것도 가져오지 않았습니다.</translation>
    </message>
    <message>
        <source>The presentation could not be imported: %1</source>
        <translation>프레젠테이션을 가져올 수 없습니다: %1</translation>
    </message>
    <message>
        <source>Import text file.
Import Text File...</source>
        <translation>텍스트 파일을 가져옵니다.
텍스트 파일 가져오기...</translation>
    </message>
    <message>
        <source>Import PowerPoint file.
Import Slides...</source>
        <translation>파워포인트 파일을 가져옵니다.
슬라이드 가져오기...</translation>
    </message>
    <message>
        <source>Loading PowerPoint Slides...</source>
        <translation>파워포인트 슬라이드를 불러오는 중...</translation>
    </message>
    <message>
        <source>Extracting %1 of %2...</source>
        <translation>%2개 중 %1번째 추출 중...</translation>
    </message>
    <message>
        <source>Inserting %1 of %2...</source>
        <translation>%2개 중 %1번째 삽입 중...</translation>
    </message>
    <message>
        <source>&amp;Live</source>
        <translation>라이브(&amp;L)</translation>
    </message>
    <message>
        <source>Blink</source>
        <translation>깜박임</translation>
    </message>
    <message>
        <source>No blink</source>
        <translation>깜빡임 없음</translation>
    </message>
    <message>
        <source>Blink properties</source>
        <translation>깜빡임 속성</translation>
    </message>
    <message>
        <source>Typing</source>
        <translation>타이핑</translation>
    </message>
    <message>
        <source>No typing</source>
        <translation>타이핑 없음</translation>
    </message>
    <message>
        <source>Typing properties</source>
        <translation>타이핑 속성</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>도움말(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>정보(&amp;A)</translation>
    </message>
    <message>
        <source>Quick Access</source>
        <translation>빠른 실행</translation>
    </message>
    <message>
        <source>Ribbon</source>
        <translation>리본</translation>
    </message>
    <message>
        <source>Lock or Unlock</source>
        <translation>잠금 또는 잠금 해제</translation>
    </message>
    <message>
        <source>Lock the selected objects, or unlock them if one is locked</source>
        <translation>선택한 개체를 잠그거나, 잠긴 개체가 있으면 모두 잠금 해제</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>보기(&amp;V)</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>데이터</translation>
    </message>
    <message>
        <source>The remote control could not start: %1</source>
        <translation>원격 제어를 시작할 수 없습니다: %1</translation>
    </message>
    <message>
        <source>Remote control on %1</source>
        <translation>원격 제어 켜짐: %1</translation>
    </message>
</context>
<context>
    <name>orv::CPageOverviewGrid</name>
    <message>
        <source>Cut</source>
        <translation>컷</translation>
    </message>
    <message>
        <source>Roll</source>
        <translation>롤</translation>
    </message>
    <message>
        <source>Crawl</source>
        <translation>크롤</translation>
    </message>
    <message>
        <source>In: %1  Out: %2</source>
        <translation>시작: %1  끝: %2</translation>
    </message>
</context>
<context>
    <name>orv::CPageThumbs</name>
    <message>
        <source>New Page</source>
        <translation>새 페이지</translation>
    </message>
    <message>
        <source>Delete Page</source>
        <translation>페이지 삭제</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>잘라내기(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>복사(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>붙여넣기(&amp;P)</translation>
    </message>
    <message>
        <source>New page</source>
        <translation>새 페이지</translation>
    </message>
</context>
<context>
    <name>orv::CPlayDlg</name>
    <message>
        <source> (discarded)</source>
        <translation> (제외됨)</translation>
    </message>
    <message>
        <source>Page %1</source>
        <translation>%1 페이지</translation>
    </message>
</context>
<context>
    <name>orv::CPlayTextDlg</name>
    <message>
        <source>Page %1</source>
        <translation>%1 페이지</translation>
    </message>
</context>
<context>
    <name>orv::CProgramMonitor</name>
    <message>
        <source>Program Monitor</source>
        <translation>프로그램 모니터</translation>
    </message>
    <message>
        <source>Checkerboard</source>
        <translation>체커보드</translation>
    </message>
    <message>
        <source>Colour...</source>
        <translation>색상...</translation>
    </message>
    <message>
        <source>Picture...</source>
        <translation>그림...</translation>
    </message>
    <message>
        <source>Monitor Background</source>
        <translation>모니터 배경</translation>
    </message>
    <message>
        <source>Pictures (*.png *.jpg *.jpeg *.bmp *.gif *.tif *.tiff)</source>
        <translation>그림 (*.png *.jpg *.jpeg *.bmp *.gif *.tif *.tiff)</translation>
    </message>
</context>
<context>
    <name>orv::CPropAuto</name>
    <message>
        <source>PROGRAM</source>
        <translation>프로그램</translation>
    </message>
    <message>
        <source>PREVIEW</source>
        <translation>미리 보기</translation>
    </message>
    <message>
        <source>Run (ENTER)</source>
        <translation>실행 (ENTER)</translation>
    </message>
    <message>
        <source>Stop (*)</source>
        <translation>정지 (*)</translation>
    </message>
    <message>
        <source>Erase (F12)</source>
        <translation>지우기 (F12)</translation>
    </message>
    <message>
        <source>Fast (+)</source>
        <translation>빠르게 (+)</translation>
    </message>
    <message>
        <source>Slow (-)</source>
        <translation>느리게 (-)</translation>
    </message>
    <message>
        <source>Start:</source>
        <translation>시작:</translation>
    </message>
    <message>
        <source>End:</source>
        <translation>끝:</translation>
    </message>
    <message>
        <source>Repeat:</source>
        <translation>반복:</translation>
    </message>
    <message>
        <source>MoveTo:</source>
        <translation>이동:</translation>
    </message>
    <message>
        <source>Ignore discarded</source>
        <translation>제외 무시</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>수동</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>자동</translation>
    </message>
    <message>
        <source>ON AIR: page %1</source>
        <translation>송출 중: %1 페이지</translation>
    </message>
    <message>
        <source>Blink</source>
        <translation>깜박임</translation>
    </message>
    <message>
        <source>Animation</source>
        <translation>애니메이션</translation>
    </message>
    <message>
        <source>Next: Animation</source>
        <translation>다음: 애니메이션</translation>
    </message>
    <message>
        <source>Next: Blink</source>
        <translation>다음: 깜박임</translation>
    </message>
</context>
<context>
    <name>orv::CPropAutoA</name>
    <message>
        <source>Run</source>
        <translation>실행</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>정지</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>지우기</translation>
    </message>
    <message>
        <source>ON AIR</source>
        <translation>송출 중</translation>
    </message>
    <message>
        <source>PREVIEW</source>
        <translation>미리 보기</translation>
    </message>
    <message>
        <source>Page %1</source>
        <translation>%1 페이지</translation>
    </message>
</context>
<context>
    <name>orv::CRibbonGallery</name>
    <message>
        <source>More</source>
        <translation>더 보기</translation>
    </message>
</context>
<context>
    <name>orv::CSplashScreenEx</name>
    <message>
        <source>Initializing...</source>
        <translation>초기화 중...</translation>
    </message>
</context>
<context>
    <name>orv::CStyleGallery</name>
    <message>
        <source>Add</source>
        <translation>추가</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>삭제</translation>
    </message>
</context>
<context>
    <name>orv::CStylesPane</name>
    <message>
        <source>Text</source>
        <translation>텍스트</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>도형</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>색상</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>배경</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>그림</translation>
    </message>
    <message>
        <source>Fill</source>
        <translation>채우기</translation>
    </message>
    <message>
        <source>Edge</source>
        <translation>테두리</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>외곽선</translation>
    </message>
    <message>
        <source>Shadow</source>
        <translation>그림자</translation>
    </message>
</context>
<context>
    <name>orv::CTabControl</name>
    <message>
        <source>Take commands from automation in play mode</source>
        <translation>플레이 모드에서 자동화 명령 받기</translation>
    </message>
    <message>
        <source>This computer only (127.0.0.1)</source>
        <translation>이 컴퓨터만 (127.0.0.1)</translation>
    </message>
    <message>
        <source>Any network address</source>
        <translation>모든 네트워크 주소</translation>
    </message>
    <message>
        <source>Listen on:</source>
        <translation>수신 주소:</translation>
    </message>
    <message>
        <source>Command line port:</source>
        <translation>명령 줄 포트:</translation>
    </message>
    <message>
        <source>HTTP port:</source>
        <translation>HTTP 포트:</translation>
    </message>
    <message>
        <source>Token:</source>
        <translation>토큰:</translation>
    </message>
    <message>
        <source>The two ports must differ.</source>
        <translation>두 포트는 서로 달라야 합니다.</translation>
    </message>
    <message>
        <source>A token is needed to listen on the network.</source>
        <translation>네트워크에서 수신하려면 토큰이 필요합니다.</translation>
    </message>
    <message>
        <source>Programs on this computer may drive play mode without a token.</source>
        <translation>이 컴퓨터의 프로그램은 토큰 없이 플레이 모드를 제어할 수 있습니다.</translation>
    </message>
    <message>
        <source>Every client gives the token first: AUTH on the command line port, a Bearer header over HTTP.</source>
        <translation>모든 클라이언트는 먼저 토큰을 보냅니다: 명령 줄 포트에서는 AUTH, HTTP에서는 Bearer 헤더.</translation>
    </message>
</context>
<context>
    <name>orv::CTabEnvEdit</name>
    <message>
        <source>Background</source>
        <translation>배경</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>색상</translation>
    </message>
    <message>
        <source>Checkerboard</source>
        <translation>체커보드</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>이미지</translation>
    </message>
    <message>
        <source>Color:</source>
        <translation>색상:</translation>
    </message>
    <message>
        <source>Checker size:</source>
        <translation>체커 크기:</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Image:</source>
        <translation>이미지:</translation>
    </message>
    <message>
        <source>Guides</source>
        <translation>안내선</translation>
    </message>
    <message>
        <source>Use Grid</source>
        <translation>격자 사용</translation>
    </message>
    <message>
        <source>Use Safety Zone</source>
        <translation>안전 영역 사용</translation>
    </message>
    <message>
        <source>Outer frame:</source>
        <translation>바깥 테두리:</translation>
    </message>
    <message>
        <source>Inner frame:</source>
        <translation>안쪽 테두리:</translation>
    </message>
    <message>
        <source>Mark SD Area</source>
        <translation>SD 영역 표시</translation>
    </message>
    <message>
        <source>All Formats (*.*)</source>
        <translation>모든 형식 (*.*)</translation>
    </message>
    <message>
        <source>The file to be inserted is unsupported.</source>
        <translation>삽입하려는 파일은 지원되지 않는 형식입니다.</translation>
    </message>
</context>
<context>
    <name>orv::CTabProgram</name>
    <message>
        <source>Display preview window on the left side</source>
        <translation>미리보기 창을 왼쪽에 표시</translation>
    </message>
    <message>
        <source>Automatic backup saving period:</source>
        <translation>자동 백업 저장 주기:</translation>
    </message>
    <message>
        <source> min</source>
        <translation> 분</translation>
    </message>
    <message>
        <source>Korean</source>
        <translation>한국어</translation>
    </message>
    <message>
        <source>English</source>
        <translation>English</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>언어:</translation>
    </message>
</context>
<context>
    <name>orv::CZevrantDoc</name>
    <message>
        <source>New Project</source>
        <translation>새 프로젝트</translation>
    </message>
    <message>
        <source>The project has no folder yet.</source>
        <translation>프로젝트에 아직 폴더가 없습니다.</translation>
    </message>
    <message>
        <source>Failed copying files.</source>
        <translation>파일을 복사하지 못했습니다.</translation>
    </message>
</context>
<context>
    <name>orv::CZevrantView</name>
    <message>
        <source> is saved.</source>
        <translation> 파일이 저장되었습니다.</translation>
    </message>
</context>
</TS>
