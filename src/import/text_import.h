#pragma once
// Text turned into pages: a file or typed text is cleaned, then cut into
// pieces by a count of lines after word wrap, or at explicit "//" marks at
// line ends, and each piece becomes one page with one text object.

#include <QString>

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "render/text_records.h"

namespace orv {

class CProjectManager;

// The view's import commands.
enum EImportCommand : uint32_t { CMD_IMPORT_TEXT = 806, CMD_IMPORT_SLIDES = 807 };

// What the import dialog hands over.
struct UstTextImport {
    QString text;
    int32_t nLinesPerPage = 2;
    float fLeft = 0;      // where each line starts
    float fTop = 0;       // the first line's baseline
    int32_t nRight = 0;   // the right margin lines wrap at
    int32_t bAppend = 0;  // at the end of the project, else behind the current page
};

// The dialog's values at opening for a frame: margins at 10 % and 90 % of
// the width, the baseline at 92 % of the height, two lines per page.
UstTextImport DefaultTextImport(int frameWidth, int frameHeight);

// A whole text file as the dialog shows it: lines joined with "\r\n" and
// the result trimmed. False with the reason when the file does not read or
// is not text.
bool ReadTextFile(const QString& path, QString& text, QString* error = nullptr);

// Trimmed; line ends made single "\r"; runs of blanks made single; tabs
// made blanks (in that order, so a run of tabs stays a run of blanks).
// Control characters other than line ends and tabs are dropped.
QString CleanImportText(const QString& text);
// Explicit mode: some line ends in "//".
bool IsExplicitText(const QString& cleaned);

// Characters in the look, each distinct code measured once.
class CImportChars {
public:
    explicit CImportChars(const UstDefaultAttr& look);
    const UstCharAttr& Get(char32_t code);
    std::vector<UstCharAttr> Convert(const QString& text);

private:
    const UstDefaultAttr& m_look;
    std::unordered_map<char32_t, UstCharAttr> m_cache;
};

using UstCharPiece = std::vector<UstCharAttr>;

// Line breaks put in where a line would run past `width`: at the last blank
// of the line, which becomes the break, or before the character that
// overflows when the line has no blank.
UstCharPiece WordWrap(const UstCharPiece& chars, float width, const UstCharAttr& lineEnd);
// The wrapped text cut after every `linesPerPage` line breaks. A page's
// last break and a blank before it stay out of the page; pieces with
// nothing but blanks and breaks make no page.
std::vector<UstCharPiece> CutByLines(const UstCharPiece& chars, int linesPerPage);
// Explicit mode: each "//" with the character behind it separates pages;
// an empty part is an empty page.
std::vector<UstCharPiece> SplitAtMarks(const QString& cleaned, CImportChars& maker);

// The pieces the pages get, from the dialog's text and values.
std::vector<UstCharPiece> TextImportPieces(const UstTextImport& values, const UstDefaultAttr& look);

// Makes the pages and puts them into the project; the undo log is emptied.
// The number of pages made: 0 for a text that gives none, with the project
// as it was.
int InsertTextPages(CProjectManager& project, const UstDefaultAttr& look,
                    const UstTextImport& values);

}  // namespace orv
