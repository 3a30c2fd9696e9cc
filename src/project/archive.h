#pragma once
// The archive of a project file: counts, strings, and references to pages
// and objects through one map of classes and objects that the whole file
// shares, in the layout that project files of this system have always had,
// so that files move freely between its installations.
//
// Writing appends to a byte block. Reading works on a whole file's bytes
// and throws on anything damaged, so that a load either completes or leaves
// nothing behind; no count or length is trusted before the bytes behind it
// have been found to exist.

#include <QString>

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "objects/byte_stream.h"
#include "objects/qrd_object.h"

namespace orv {

class CPageManager;

// The classes a project file may name, and the objects they make.
enum class EArchiveClass : uint8_t { PAGE, TEXT, SHAPE, PICTURE, ANIMATION, TIMER, GROUP };

// Object references: the first 16 bits.
constexpr uint16_t ARCHIVE_NULL_TAG = 0x0000;
constexpr uint16_t ARCHIVE_NEW_CLASS_TAG = 0xFFFF;
constexpr uint16_t ARCHIVE_CLASS_TAG = 0x8000;  // or-ed with a known class's index
constexpr uint16_t ARCHIVE_BIG_TAG = 0x7FFF;    // a 32-bit index follows
constexpr uint32_t ARCHIVE_BIG_CLASS_TAG = 0x80000000u;

// Groups inside groups deeper than this are taken for damage: no editor
// makes them, and each level costs the reader stack.
constexpr int ARCHIVE_MAX_NESTING = 64;

// The name a file gives the class, and back.
const char* ArchiveClassName(EArchiveClass cls);
bool ArchiveClassFromName(const std::string& name, EArchiveClass* cls);

class CArchiveOut {
public:
    CByteWriter& Bytes() { return m_out; }
    void WriteCount(uint32_t count);
    void WriteString(const QString& text);
    // A reference with its class record on first appearance, then the body.
    // An object whose class no file can name throws std::logic_error.
    void WritePage(const CPageManager& page);
    void WriteObject(const CQRDObject& object);
    // The count, then each object's reference.
    void WriteObjectList(const std::vector<std::unique_ptr<CQRDObject>>& objects);

private:
    // True when the object was written before: a back-reference went out.
    bool WriteKnown(const void* object);
    void WriteClass(const char* name);
    void WriteBody(const CQRDObject& object, EArchiveClass cls);
    void WriteIndex(uint32_t index, bool isClass);

    CByteWriter m_out;
    std::unordered_map<std::string, uint32_t> m_classes;
    std::unordered_map<const void*, uint32_t> m_objects;
    uint32_t m_nMapCount = 1;  // 0 stands for null
};

class CArchiveIn {
public:
    explicit CArchiveIn(CByteReader& in) : m_in(in) {}
    CByteReader& Bytes() { return m_in; }
    uint32_t ReadCount();
    // A count of entries that take at least minEntrySize bytes each; more
    // than the rest of the file could hold throws.
    uint32_t ReadCount(size_t minEntrySize);
    QString ReadString();
    // A page where the file must hold one; null or anything else throws.
    std::unique_ptr<CPageManager> ReadPage();
    std::unique_ptr<CQRDObject> ReadObject();
    std::vector<std::unique_ptr<CQRDObject>> ReadObjectList();

private:
    struct UstMapEntry {
        bool bClass;
        EArchiveClass cls;
        bool bOpen;  // an object whose body is still being read
    };
    // Reads a reference up to the body of a new object, whose class it
    // answers; every other kind of reference throws.
    EArchiveClass ReadNewObjectClass(bool wantPage);
    EArchiveClass ReadClassRecord();
    void RejectReference(uint32_t index, bool wantPage) const;
    void ReadBody(CQRDObject& object, EArchiveClass cls);

    CByteReader& m_in;
    std::vector<UstMapEntry> m_map{{false, EArchiveClass::PAGE, false}};  // index 0: null
    int m_nDepth = 0;
};

}  // namespace orv
