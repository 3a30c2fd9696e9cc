#include "project/archive.h"

#include <stdexcept>
#include <type_traits>

#include "objects/ani_object.h"
#include "objects/archive_fields.h"
#include "objects/group_object.h"
#include "objects/object_factory.h"
#include "objects/picture_object.h"
#include "objects/shape_object.h"
#include "objects/tc_object.h"
#include "objects/text_object.h"
#include "project/page_manager.h"

namespace orv {

namespace {

struct UstClassName {
    EArchiveClass cls;
    const char* name;
    int type;  // the kind number of the objects it makes
};

constexpr UstClassName CLASS_NAMES[] = {
    {EArchiveClass::PAGE, "CPageManager", OBJ_BASE},
    {EArchiveClass::TEXT, "CQRDObjectText", OBJ_TEXT},
    {EArchiveClass::SHAPE, "CQRDObjectShape", OBJ_SHAPE},
    {EArchiveClass::PICTURE, "CQRDObjectPicture", OBJ_PICTURE},
    {EArchiveClass::ANIMATION, "CQRDObjectAni", OBJ_ANIMATION},
    {EArchiveClass::TIMER, "CQRDObjectTC", OBJ_TIMER},
    {EArchiveClass::GROUP, "CQRDObjectGroup", OBJ_GROUP},
};

int ObjectType(EArchiveClass cls) {
    for (const UstClassName& c : CLASS_NAMES)
        if (c.cls == cls) return c.type;
    return OBJ_BASE;
}

// Class names longer than this never belonged to any class.
constexpr uint16_t MAX_CLASS_NAME = 63;

// The smallest reference: its 16-bit tag.
constexpr size_t MIN_REFERENCE_SIZE = 2;

// The object as the class it is, const where it was.
template <typename T, typename Object>
auto& As(Object& object) {
    return static_cast<std::conditional_t<std::is_const_v<Object>, const T, T>&>(object);
}

// Calls f with the object as the class it is: the class comes from the
// object's own name or from the record that made it, so the cast holds.
template <typename Object, typename F>
void AsClass(Object& object, EArchiveClass cls, F&& f) {
    switch (cls) {
        case EArchiveClass::TEXT:
            return f(As<CQRDObjectText>(object));
        case EArchiveClass::SHAPE:
            return f(As<CQRDObjectShape>(object));
        case EArchiveClass::PICTURE:
            return f(As<CQRDObjectPicture>(object));
        case EArchiveClass::ANIMATION:
            return f(As<CQRDObjectAni>(object));
        case EArchiveClass::TIMER:
            return f(As<CQRDObjectTC>(object));
        case EArchiveClass::GROUP:
            return f(As<CQRDObjectGroup>(object));
        case EArchiveClass::PAGE:
            return;
    }
}

[[noreturn]] void Damaged(const std::string& why) {
    throw std::runtime_error(why);
}

}  // namespace

const char* ArchiveClassName(EArchiveClass cls) {
    for (const UstClassName& c : CLASS_NAMES)
        if (c.cls == cls) return c.name;
    return "";
}

bool ArchiveClassFromName(const std::string& name, EArchiveClass* cls) {
    for (const UstClassName& c : CLASS_NAMES) {
        if (name != c.name) continue;
        *cls = c.cls;
        return true;
    }
    return false;
}

// ---- writing ----

void CArchiveOut::WriteCount(uint32_t count) {
    WriteArchiveCount(m_out, count);
}

void CArchiveOut::WriteString(const QString& text) {
    WriteArchiveString(m_out, text);
}

void CArchiveOut::WriteIndex(uint32_t index, bool isClass) {
    if (index < ARCHIVE_BIG_TAG) {
        m_out.Put(static_cast<uint16_t>(isClass ? (ARCHIVE_CLASS_TAG | index) : index));
        return;
    }
    m_out.Put(ARCHIVE_BIG_TAG);
    m_out.Put(isClass ? (ARCHIVE_BIG_CLASS_TAG | index) : index);
}

bool CArchiveOut::WriteKnown(const void* object) {
    const auto it = m_objects.find(object);
    if (it == m_objects.end()) return false;
    WriteIndex(it->second, false);
    return true;
}

void CArchiveOut::WriteClass(const char* name) {
    const auto it = m_classes.find(name);
    if (it != m_classes.end()) {
        WriteIndex(it->second, true);
        return;
    }
    const auto length = static_cast<uint16_t>(std::char_traits<char>::length(name));
    m_out.Put(ARCHIVE_NEW_CLASS_TAG);
    m_out.Put<uint16_t>(0);  // schema
    m_out.Put(length);
    m_out.PutBytes(name, length);
    m_classes.emplace(name, m_nMapCount++);
}

void CArchiveOut::WritePage(const CPageManager& page) {
    if (WriteKnown(&page)) return;
    WriteClass(ArchiveClassName(EArchiveClass::PAGE));
    m_objects.emplace(&page, m_nMapCount++);
    page.Serialize(*this);
}

void CArchiveOut::WriteObject(const CQRDObject& object) {
    const char* name = object.ArchiveClassName();
    EArchiveClass cls;
    if (!name || !ArchiveClassFromName(name, &cls) || cls == EArchiveClass::PAGE)
        throw std::logic_error("an object of a kind no project file can hold");
    if (WriteKnown(&object)) return;
    WriteClass(name);
    m_objects.emplace(&object, m_nMapCount++);
    WriteBody(object, cls);
}

void CArchiveOut::WriteBody(const CQRDObject& object, EArchiveClass cls) {
    AsClass(object, cls, [this](const auto& typed) {
        if constexpr (std::is_same_v<std::decay_t<decltype(typed)>, CQRDObjectGroup>) {
            // Members are objects of the file in their own right: the map
            // that numbers them is the one of the whole file.
            typed.Serialize(m_out, [this](CByteWriter&, const CQRDObject& m) { WriteObject(m); });
        } else {
            typed.Serialize(m_out);
        }
    });
}

void CArchiveOut::WriteObjectList(const std::vector<std::unique_ptr<CQRDObject>>& objects) {
    WriteCount(static_cast<uint32_t>(objects.size()));
    for (const auto& o : objects)
        WriteObject(*o);
}

// ---- reading ----

uint32_t CArchiveIn::ReadCount() {
    return ReadArchiveCount(m_in);
}

uint32_t CArchiveIn::ReadCount(size_t minEntrySize) {
    const uint32_t count = ReadCount();
    if (static_cast<uint64_t>(count) * minEntrySize > m_in.Remaining())
        Damaged("a list counts " + std::to_string(count) + " entries, more than the file holds");
    return count;
}

QString CArchiveIn::ReadString() {
    return ReadArchiveString(m_in);
}

EArchiveClass CArchiveIn::ReadClassRecord() {
    const auto schema = m_in.Get<uint16_t>();
    const auto length = m_in.Get<uint16_t>();
    if (length > MAX_CLASS_NAME || length > m_in.Remaining())
        Damaged("a class name of " + std::to_string(length) + " characters");
    std::string name(length, '\0');
    m_in.GetBytes(name.data(), length);
    EArchiveClass cls;
    if (!ArchiveClassFromName(name, &cls)) Damaged("an unknown class '" + name + "'");
    if (schema != 0)
        Damaged("class " + name + " with schema " + std::to_string(schema) + " instead of 0");
    m_map.push_back({true, cls, false});
    return cls;
}

void CArchiveIn::RejectReference(uint32_t index, bool wantPage) const {
    if (index == 0) Damaged(wantPage ? "an empty page reference" : "an empty object reference");
    if (index >= m_map.size())
        Damaged("a reference to entry " + std::to_string(index) + ", which was never read");
    const UstMapEntry& e = m_map[index];
    if (e.bClass) Damaged("a reference to a class record where an object belongs");
    if (wantPage != (e.cls == EArchiveClass::PAGE))
        Damaged(std::string("a reference to a ") + ArchiveClassName(e.cls) + " where " +
                (wantPage ? "a page" : "an object") + " belongs");
    if (e.bOpen) Damaged("an object that contains itself");
    // Every object of a file has one place; a second one would be shared.
    Damaged(std::string("a ") + ArchiveClassName(e.cls) + " referred to twice");
}

EArchiveClass CArchiveIn::ReadNewObjectClass(bool wantPage) {
    const auto tag = m_in.Get<uint16_t>();
    uint32_t full = 0;
    if (tag == ARCHIVE_BIG_TAG) {
        full = m_in.Get<uint32_t>();
    } else {
        full = (static_cast<uint32_t>(tag & ARCHIVE_CLASS_TAG) << 16) |
               static_cast<uint32_t>(tag & ~ARCHIVE_CLASS_TAG);
    }
    if (!(full & ARCHIVE_BIG_CLASS_TAG)) RejectReference(full, wantPage);
    EArchiveClass cls;
    if (tag == ARCHIVE_NEW_CLASS_TAG) {
        cls = ReadClassRecord();
    } else {
        const uint32_t index = full & ~ARCHIVE_BIG_CLASS_TAG;
        if (index == 0 || index >= m_map.size() || !m_map[index].bClass)
            Damaged("a class index " + std::to_string(index) + " that names no class");
        cls = m_map[index].cls;
    }
    if (wantPage != (cls == EArchiveClass::PAGE))
        Damaged(std::string("a ") + ArchiveClassName(cls) + " where " +
                (wantPage ? "a page" : "an object") + " belongs");
    return cls;
}

std::unique_ptr<CPageManager> CArchiveIn::ReadPage() {
    ReadNewObjectClass(true);
    auto page = std::make_unique<CPageManager>();
    const size_t entry = m_map.size();
    m_map.push_back({false, EArchiveClass::PAGE, true});
    page->Deserialize(*this);
    m_map[entry].bOpen = false;
    return page;
}

void CArchiveIn::ReadBody(CQRDObject& object, EArchiveClass cls) {
    AsClass(object, cls, [this](auto& typed) {
        if constexpr (std::is_same_v<std::decay_t<decltype(typed)>, CQRDObjectGroup>)
            typed.Deserialize(m_in, [this](CByteReader&) { return ReadObject(); });
        else
            typed.Deserialize(m_in);
    });
}

std::unique_ptr<CQRDObject> CArchiveIn::ReadObject() {
    if (m_nDepth >= ARCHIVE_MAX_NESTING) Damaged("groups nested too deeply");
    const EArchiveClass cls = ReadNewObjectClass(false);
    std::unique_ptr<CQRDObject> object = CreateObjectOfType(ObjectType(cls), nullptr);
    const size_t entry = m_map.size();
    m_map.push_back({false, cls, true});
    ++m_nDepth;
    ReadBody(*object, cls);
    --m_nDepth;
    m_map[entry].bOpen = false;
    return object;
}

std::vector<std::unique_ptr<CQRDObject>> CArchiveIn::ReadObjectList() {
    const uint32_t count = ReadCount(MIN_REFERENCE_SIZE);
    std::vector<std::unique_ptr<CQRDObject>> objects;
    for (uint32_t i = 0; i < count; ++i)
        objects.push_back(ReadObject());
    return objects;
}

}  // namespace orv
