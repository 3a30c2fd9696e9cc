#!/usr/bin/env python3
"""Fills i18n/*.ts: English repeats its source texts, Korean takes the texts
below. Run from the repository root after changing strings, following

    lupdate -no-obsolete -locations none src/ui src/shell \
        -ts i18n/orvantis_en.ts i18n/orvantis_ko.ts
"""
import html
import re
import sys

KO = {
    "Styles": "스타일",
    "Add": "추가",
    "Delete": "삭제",
    "Shape": "도형",
    "Picture": "그림",
    "Fill": "채우기",
    "Failed adding a style.": "스타일을 추가하지 못했습니다.",
    "Failed deleting a style.": "스타일을 삭제하지 못했습니다.",
    "Select one text to add its style.": "스타일을 가져올 텍스트를 하나 선택하십시오.",
    "Select one shape to add its style.": "스타일을 가져올 도형을 하나 선택하십시오.",
    "Options": "옵션",
    "Program Settings": "프로그램 설정",
    "Edit Options": "편집 옵션",
    "Initializing...": "초기화 중...",
    "Loading fonts, icons, styles, ribbon menu...": "글꼴, 아이콘, 스타일, 리본 메뉴를 불러오는 중...",
    "Initializing docking panes...": "도킹 창을 초기화하는 중...",
    "&File": "파일(&F)",
    "&Edit": "편집(&E)",
    "&Undo": "실행 취소(&U)",
    "&Redo": "다시 실행(&R)",
    "Cu&t": "잘라내기(&T)",
    "&Copy": "복사(&C)",
    "&Paste": "붙여넣기(&P)",
    "E&xit": "끝내기(&X)",
    "&Tools": "도구(&T)",
    "&Options...": "옵션(&O)...",
    "Standard": "표준",
    "Slide": "슬라이드",
    "Outline": "개요",
    "Play": "송출",
    "Text": "텍스트",
    "The image path is empty or invalid, please reset the path.":
        "이미지 경로가 비어 있거나 올바르지 않습니다. 경로를 다시 지정하십시오.",
    "To apply language setting, the program must be restarted. Terminate program?":
        "언어 설정을 적용하려면 프로그램을 다시 시작해야 합니다. 프로그램을 종료하시겠습니까?",
    "Please stop automatic play out to exit play mode.":
        "송출 모드를 끝내려면 자동 송출을 먼저 정지하십시오.",
    "Program was not closed properly.\nRecovering from the last modification.":
        "프로그램이 정상적으로 종료되지 않았습니다.\n마지막 수정 내용으로 복구합니다.",
    "Background": "배경",
    "Color": "색상",
    "Checkerboard": "체커보드",
    "Image": "이미지",
    "Color:": "색상:",
    "Checker size:": "체커 크기:",
    "...": "...",
    "Image:": "이미지:",
    "Guides": "안내선",
    "Use Grid": "격자 사용",
    "Use Safety Zone": "안전 영역 사용",
    "Outer frame:": "바깥 테두리:",
    "Inner frame:": "안쪽 테두리:",
    "Mark SD Area": "SD 영역 표시",
    "All Formats (*.*)": "모든 형식 (*.*)",
    "The file to be inserted is unsupported.": "삽입하려는 파일은 지원되지 않는 형식입니다.",
    "Display preview window on the left side": "미리보기 창을 왼쪽에 표시",
    "Automatic backup saving period:": "자동 백업 저장 주기:",
    " min": " 분",
    "Korean": "한국어",
    "English": "English",
    "Language:": "언어:",
    "New Project": "새 프로젝트",
    " is saved.": " 파일이 저장되었습니다.",
    "Bring objects to front\nBring to Front": "개체를 맨 앞으로 가져오기\n맨 앞으로 가져오기",
    "Send objects to back\nSend to Back": "개체를 맨 뒤로 보내기\n맨 뒤로 보내기",
    "Bring objects forward\nBring Forward": "개체를 앞으로 가져오기\n앞으로 가져오기",
    "Send objects backward\nSend Backward": "개체를 뒤로 보내기\n뒤로 보내기",
    "Align objects to left\nAlign objects to left": "개체 왼쪽 맞춤\n개체 왼쪽 맞춤",
    "Align objects to right\nAlign objects to right": "개체 오른쪽 맞춤\n개체 오른쪽 맞춤",
    "Align objects to top\nAlign objects to top": "개체 위쪽 맞춤\n개체 위쪽 맞춤",
    "Align objects to bottom\nAlign objects to bottom": "개체 아래쪽 맞춤\n개체 아래쪽 맞춤",
    "Align objects to center\nAlign to center": "개체 가운데 맞춤\n가운데 맞춤",
    "Align objects to horizontal center\nAlign objects to horizontal center":
        "개체 가로 가운데 맞춤\n개체 가로 가운데 맞춤",
    "Align objects to vertical center\nAlign objects to vertical center":
        "개체 세로 가운데 맞춤\n개체 세로 가운데 맞춤",
    "Align to left\nAlign to left": "왼쪽 안전선에 맞춤\n왼쪽 안전선에 맞춤",
    "Align to right\nAlign to right": "오른쪽 안전선에 맞춤\n오른쪽 안전선에 맞춤",
    "Align to top\nAlign to top": "위쪽 안전선에 맞춤\n위쪽 안전선에 맞춤",
    "Align to bottom\nAlign to bottom": "아래쪽 안전선에 맞춤\n아래쪽 안전선에 맞춤",
    "&Text": "텍스트(&T)",
    "Edit Text.\nText": "텍스트를 편집합니다.\n텍스트",
    "Select an Object.\nSelect": "개체를 선택합니다.\n선택",
    "Choose the font of the text.\nFont...": "텍스트의 글꼴을 고릅니다.\n글꼴...",
    "Choose the size of the text.\nFont Size...": "텍스트의 크기를 고릅니다.\n글꼴 크기...",
    "Split text into lines\nSplit into Lines": "텍스트를 줄 단위로 나눕니다\n줄로 나누기",
    "Split text into characters\nSplit into Characters": "텍스트를 글자 단위로 나눕니다\n글자로 나누기",
    "Font": "글꼴",
    "Font:": "글꼴:",
    "Font Size": "글꼴 크기",
    "Size (points):": "크기(포인트):",
    "&Arrange": "정렬(&A)",
    "Gradient": "그라데이션",
    "Linear": "선형",
    "Path": "패스",
    "Old": "이전",
    "New": "새 색",
    "Gradient type": "그라데이션 종류",
    "Angle": "각도",
    "Alpha": "투명도",
    "Export page to Image (TGA 32)": "페이지를 이미지로 내보내기 (TGA 32)",
    "Save to TGA 32bit image.": "32비트 TGA 이미지로 저장합니다.",
    "TGA Files(*.TGA)": "TGA 파일(*.TGA)",
    "The page could not be written to %1.": "페이지를 %1에 저장하지 못했습니다.",
    "&Page": "페이지(&P)",
    "Cut": "컷",
    "Roll": "롤",
    "Crawl": "크롤",
    "Objects within the page will be lost. Do you wish to proceed?":
        "페이지 안의 개체가 모두 삭제됩니다. 계속하시겠습니까?",
    "Effects": "효과",
    "Edge:": "테두리:",
    "Outline:": "외곽선:",
    "Edge softness:": "테두리 부드럽게:",
    "Drop": "Drop",
    "Drag": "Drag",
    "Shadow:": "그림자:",
    "Shadow X:": "그림자 X:",
    "Shadow Y:": "그림자 Y:",
    "Shadow softness:": "그림자 부드럽게:",
    "Rectangle": "사각형",
    "Rounded Rectangle": "둥근 사각형",
    "Ellipse": "타원",
    "Circle": "원",
    "Slanted Bar Left": "타이틀 바 (왼쪽 기울임)",
    "Slanted Bar Right": "타이틀 바 (오른쪽 기울임)",
    "Diamond": "마름모",
    "Pentagon": "오각형",
    "Hexagon": "육각형",
    "Octagon": "팔각형",
    "Star": "별",
    "Arrow Right": "오른쪽 화살표",
    "Arrow Left": "왼쪽 화살표",
    "Arrow Up": "위쪽 화살표",
    "Arrow Down": "아래쪽 화살표",
    "Triangle Right": "오른쪽 삼각형",
    "Triangle Left": "왼쪽 삼각형",
    "Triangle Up": "위쪽 삼각형",
    "Triangle Down": "아래쪽 삼각형",
    "Round End Bar 1": "타이틀 바 (둥근 끝) 1",
    "Round End Bar 2": "타이틀 바 (둥근 끝) 2",
    "Round End Bar 3": "타이틀 바 (둥근 끝) 3",
    "Round End Bar 4": "타이틀 바 (둥근 끝) 4",
    "Slanted End Bar 1": "타이틀 바 (기울인 끝) 1",
    "Slanted End Bar 2": "타이틀 바 (기울인 끝) 2",
    "Slanted End Bar 3": "타이틀 바 (기울인 끝) 3",
    "Slanted End Bar 4": "타이틀 바 (기울인 끝) 4",
    "Slanted End Bar 5": "타이틀 바 (기울인 끝) 5",
    "S&hape": "도형(&H)",
    "Draw Shape": "도형 그리기",
    "Edit Shape": "도형 편집",
    "Start Editing Shape": "도형 편집 시작",
    "Face": "면",
    "Edge": "테두리",
    "Outline": "외곽선",
    "Shadow": "그림자",
    "%1 Colour...": "%1 색...",
    "%1 Gradient...": "%1 그라데이션...",
    "Effects...": "효과...",
    "Initializing hardware....": "하드웨어를 초기화하는 중....",
    "O&utput": "출력(&U)",
    "Hardware Configuration\nConfigure": "하드웨어 설정\n설정",
    "Reset the graphic board\nReset": "그래픽 보드 초기화\n초기화",
    "Show what the output sends\nProgram Monitor": "출력으로 나가는 화면 보기\n프로그램 모니터",
    "Put colour bars and a key ramp on the output\nTest Card":
        "출력에 컬러 바와 키 램프 내보내기\n테스트 카드",
    "The output %1 failed (%2); frames go to the clock-paced output.":
        "출력 %1이(가) 실패했습니다(%2). 프레임은 시계에 맞춘 출력으로 보냅니다.",
    "To apply changes, the program must be restarted. Terminate program?":
        "변경 사항을 적용하려면 프로그램을 다시 시작해야 합니다. 프로그램을 종료하시겠습니까?",
    "Hardware Configuration": "하드웨어 설정",
    "Device": "장치",
    "Video Format": "비디오 형식",
    "Audio Format": "오디오 형식",
    "Keying": "키잉",
    "Internal": "내부",
    "External": "외부",
    "Output": "출력",
    "Card": "카드",
    "Clock only, no picture": "시계만 (화면 없음)",
    "Program monitor": "프로그램 모니터",
    "File (lossless, fill and key)": "파일 (무손실, 필과 키)",
    "SRT stream (fill over black)": "SRT 스트림 (검정 위의 필)",
    "output.mkv": "output.mkv",
    "Output File": "출력 파일",
    "Matroska Files (*.mkv)": "Matroska 파일 (*.mkv)",
    "Program Monitor": "프로그램 모니터",
    "Colour...": "색상...",
    "Picture...": "그림...",
    "Monitor Background": "모니터 배경",
    "Pictures (*.png *.jpg *.jpeg *.bmp *.gif *.tif *.tiff)":
        "그림 (*.png *.jpg *.jpeg *.bmp *.gif *.tif *.tiff)",
    "&Insert": "삽입(&I)",
    "Insert a picture file\nPicture...": "그림 파일 삽입\n그림...",
    "Insert a background picture\nBackground...": "배경 그림 삽입\n배경...",
    "Erase the background picture\nErase Background": "배경 그림 지우기\n배경 지우기",
    "Start keying\nStart Keying": "키잉 시작\n키잉 시작",
    "Reset key value\nReset Key": "키 값 초기화\n키 초기화",
    "Alpha value for selected picture\nPicture Alpha...": "선택한 그림의 알파 값\n그림 알파...",
    "Group objects\nGroup": "개체 그룹화\n그룹",
    "Ungroup objects\nUngroup": "개체 그룹 해제\n그룹 해제",
    "Open": "열기",
    "Failed loading picture.": "그림을 불러오지 못했습니다.",
    "Alpha": "알파",
    "Alpha (0 to 255):": "알파 (0~255):",
    "Pictures (*.bmp *.jpg *.jpeg *.png *.tga *.tif *.tiff *.gif);;"
    "BMP (*.bmp);;JPEG (*.jpg *.jpeg);;PNG (*.png);;TGA (*.tga);;"
    "TIFF (*.tif *.tiff);;GIF (*.gif)":
        "그림 (*.bmp *.jpg *.jpeg *.png *.tga *.tif *.tiff *.gif);;"
        "BMP (*.bmp);;JPEG (*.jpg *.jpeg);;PNG (*.png);;TGA (*.tga);;"
        "TIFF (*.tif *.tiff);;GIF (*.gif)",
    "&Open Project File...": "프로젝트 파일 열기(&O)...",
    "&Save": "저장(&S)",
    "Open Project File": "프로젝트 파일 열기",
    "Save Project": "프로젝트 저장",
    "Project files (*.qrdprj);;All files (*)": "프로젝트 파일 (*.qrdprj);;모든 파일 (*)",
    "The project %1 could not be opened:\n%2": "프로젝트 %1을(를) 열 수 없습니다:\n%2",
    "The project could not be saved:\n%1": "프로젝트를 저장할 수 없습니다:\n%1",
    "The project has no file yet.": "프로젝트에 아직 파일이 없습니다.",
    "The folders Data and Object cannot be made.": "Data 폴더와 Object 폴더를 만들 수 없습니다.",
    "Failed copying files.": "파일을 복사하지 못했습니다.",
    "Converting...": "변환 중...",
    "Animation Properties": "애니메이션 속성",
    "FPS:": "FPS:",
    "Repeat:": "반복:",
    "Animations and picture sequences (*.ani32 *.ANI32 *.qrdani *.QRDANI *.avi *.mov *.mp4 "
    "*.mkv *.webm *.mxf *.tga *.png);;ANI32 (*.ani32 *.ANI32);;QRDANI (*.qrdani *.QRDANI);;"
    "Video (*.avi *.mov *.mp4 *.mkv *.webm *.mxf);;Picture sequence (*.tga *.png)":
        "애니메이션과 연속 그림 (*.ani32 *.ANI32 *.qrdani *.QRDANI *.avi *.mov *.mp4 "
        "*.mkv *.webm *.mxf *.tga *.png);;ANI32 (*.ani32 *.ANI32);;QRDANI (*.qrdani *.QRDANI);;"
        "동영상 (*.avi *.mov *.mp4 *.mkv *.webm *.mxf);;연속 그림 (*.tga *.png)",
    "Failed converting TGA(PNG) sequence files to animation file.":
        "TGA(PNG) 연속 파일을 애니메이션 파일로 변환하지 못했습니다.",
    "Failed inserting animation file": "애니메이션 파일을 삽입하지 못했습니다",
    "Insert animation\nAnimation...": "애니메이션 삽입\n애니메이션...",
    "Animation properties\nAnimation Properties...": "애니메이션 속성\n애니메이션 속성...",
    "Play the selected animation through on the canvas\nPreview Animation":
        "선택한 애니메이션을 캔버스에서 끝까지 재생\n애니메이션 미리보기",
    "&New Project...": "새 프로젝트(&N)...",
    "&Open Project...": "프로젝트 열기(&O)...",
    "Open Project &File...": "프로젝트 파일 열기(&F)...",
    "S&witch Project": "프로젝트 전환(&W)",
    "Save Project &As...": "다른 이름으로 프로젝트 저장(&A)...",
    "&Close Project": "프로젝트 닫기(&C)",
    "(none)": "(없음)",
    "Open Project": "프로젝트 열기",
    "Save Project As": "다른 이름으로 프로젝트 저장",
    "Location:": "위치:",
    "Project": "프로젝트",
    "Created": "만든 날짜",
    "Modified": "수정한 날짜",
    "Project Name:": "프로젝트 이름:",
    "Project name:": "프로젝트 이름:",
    "Pages:": "페이지 수:",
    "Preview": "미리 보기",
    "HD(16:9)": "HD(16:9)",
    "SD(4:3)": "SD(4:3)",
    "Please select a project.": "프로젝트를 선택하십시오.",
    "The project name already exists, please reenter project name.":
        "같은 이름의 프로젝트가 이미 있습니다. 프로젝트 이름을 다시 입력하십시오.",
    "Failed to create project.": "프로젝트를 만들지 못했습니다.",
    "Save the changes?": "변경 내용을 저장하시겠습니까?",
    "Please exit play mode to close project.": "프로젝트를 닫으려면 송출 모드를 끝내십시오.",
    "The project has no folder yet.": "프로젝트에 아직 폴더가 없습니다.",
    "Insert a background picture on every page\nBackground to All Pages...":
        "모든 페이지에 배경 그림 넣기\n모든 페이지에 배경...",
    "New Page": "새 페이지",
    "Delete Page": "페이지 삭제",
    "Previous Page": "이전 페이지",
    "Next Page": "다음 페이지",
    "&Play": "송출(&P)",
    "Play Mode\nPlay Mode": "송출 모드\n송출 모드",
    "Open or close the play window\nPlay Window": "송출 창을 열거나 닫습니다\n송출 창",
    "Erase output\nErase Output\nErase": "출력 지우기\n출력 지우기\n지우기",
    "Discard current page for play out.\nDiscard": "현재 페이지를 송출에서 제외합니다.\n제외",
    "Play Out": "송출 목록",
    "Logo": "로고",
    "PROGRAM": "프로그램",
    "PREVIEW": "미리 보기",
    "Run (ENTER)": "실행 (ENTER)",
    "Stop (*)": "정지 (*)",
    "Erase (F12)": "지우기 (F12)",
    "Fast (+)": "빠르게 (+)",
    "Slow (-)": "느리게 (-)",
    "Start:": "시작:",
    "End:": "끝:",
    "Repeat:": "반복:",
    "MoveTo:": "이동:",
    "Ignore discarded": "제외 무시",
    "Manual": "수동",
    "Auto": "자동",
    "ON AIR: page %1": "송출 중: %1 페이지",
    "Blink": "깜박임",
    "Animation": "애니메이션",
    "Next: Animation": "다음: 애니메이션",
    "Next: Blink": "다음: 깜박임",
    "Run": "실행",
    "Stop": "정지",
    "Erase": "지우기",
    "ON AIR": "송출 중",
    "Page %1": "%1 페이지",
    " (discarded)": " (제외됨)",
    "Import text file.\nImport Text File...": "텍스트 파일을 가져옵니다.\n텍스트 파일 가져오기...",
    "Import PowerPoint file.\nImport Slides...": "파워포인트 파일을 가져옵니다.\n슬라이드 가져오기...",
    "Import Text File": "텍스트 파일 가져오기",
    "Left margin:": "왼쪽 여백:",
    "Right margin:": "오른쪽 여백:",
    "Lines Per Page:": "페이지당 줄 수:",
    "Open...": "열기...",
    "Append Pages": "맨 뒤에 페이지 추가",
    "Insert": "삽입",
    "Cancel": "취소",
    "Text File (*.txt)": "텍스트 파일 (*.txt)",
    "Loading PowerPoint Slides...": "파워포인트 슬라이드를 불러오는 중...",
    "Extracting %1 of %2...": "%2개 중 %1번째 추출 중...",
    "Inserting %1 of %2...": "%2개 중 %1번째 삽입 중...",
    "PowerPoint Presentation (*.pptx);;PowerPoint 97-2003 Presentation(*.ppt);;"
    "OpenDocument Presentation (*.odp);;PDF (*.pdf)":
        "파워포인트 프레젠테이션 (*.pptx);;파워포인트 97-2003 프레젠테이션(*.ppt);;"
        "OpenDocument 프레젠테이션 (*.odp);;PDF (*.pdf)",
    "LibreOffice is not installed. Install the package %1 to import presentations.":
        "LibreOffice가 설치되어 있지 않습니다. 프레젠테이션을 가져오려면 %1 패키지를 설치하십시오.",
    "LibreOffice did not finish converting the presentation in time; nothing was imported.":
        "LibreOffice가 제시간에 프레젠테이션 변환을 끝내지 못해 아무것도 가져오지 않았습니다.",
    "The presentation could not be imported: %1": "프레젠테이션을 가져올 수 없습니다: %1",
    "Ribbon": "리본",
    "&Help": "도움말(&H)",
    "&About": "정보(&A)",
    "Find": "찾기",
    "Find what:": "찾을 내용:",
    "Cannot find the string '%1'.": "'%1' 문자열을 찾을 수 없습니다.",
    "More": "더 보기",
    "Quick Access": "빠른 실행",
    "AM": "오전",
    "PM": "오후",
    "&Live": "라이브(&L)",
    "Blink": "깜박임",
    "No blink": "깜박임 없음",
    "Blink properties": "깜박임 속성",
    "Typing": "타이핑",
    "No typing": "타이핑 없음",
    "Typing properties": "타이핑 속성",
    "Mode:": "모드:",
    "Colour:": "색:",
    "Speed:": "속도:",
    "Order:": "순서:",
    "%1 ms": "%1 ms",
    # Texts written in Korean in the code stand as they are.
    "개체유무": "개체유무",
    "색으로": "색으로",
    "수동": "수동",
    "자동": "자동",
    "자간단위": "자간단위",
    "라인단위": "라인단위",
    "지연:": "지연:",
}

# Contexts named in the code by a literal rather than by a class in orv.
LITERAL_CONTEXTS = ("CQRDObjectTC",)

MESSAGE = re.compile(r"(<source>)(.*?)(</source>\s*)<translation[^>]*>(.*?)</translation>", re.S)


def fill(path, table):
    text = open(path, encoding="utf-8").read()
    missing = []

    def repl(m):
        source = html.unescape(m.group(2))
        target = source if table is None else table.get(source)
        if target is None:
            # A translation made earlier is kept, and no longer left unfinished.
            if m.group(4):
                target = html.unescape(m.group(4))
            else:
                missing.append(source)
                return m.group(0)
        return m.group(1) + m.group(2) + m.group(3) + \
            "<translation>" + html.escape(target, quote=False) + "</translation>"

    text = MESSAGE.sub(repl, text)
    # The classes live in namespace orv, which is part of their translation
    # context at run time; lupdate leaves it out.
    text = re.sub(r"<name>(?!orv::)(C\w+)</name>",
                  lambda m: m.group(0) if m.group(1) in LITERAL_CONTEXTS
                  else "<name>orv::" + m.group(1) + "</name>", text)
    open(path, "w", encoding="utf-8").write(text)
    return missing


missing = fill("i18n/orvantis_ko.ts", KO) + fill("i18n/orvantis_en.ts", None)
for m in missing:
    print("untranslated:", repr(m), file=sys.stderr)
sys.exit(1 if missing else 0)
