// Project files built byte by byte here, not by the writer: what they must
// load as, that the writer gives the same bytes back, and how each kind of
// damage is refused.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <random>

#include "objects/group_object.h"
#include "objects/shape_object.h"
#include "objects/text_object.h"
#include "project/archive.h"
#include "project/project_manager.h"
#include "render/fixed_string.h"
#include "support/byte_builder.h"
#include "support/rect_object.h"
#include "test_util.h"

namespace orv {
namespace {

using test::CBytes;

// What a variant of the hand-built file changes.
struct UstKnobs {
    int32_t width = 1920, height = 1080;
    std::vector<uint8_t> listCount = {2, 0};
    std::vector<uint8_t> page2Tag = {0x01, 0x80};  // known class 1
    std::vector<uint8_t> page2ObjectTag = {0x03, 0x80};
    std::string shapeClass = "CQRDObjectShape";
    uint16_t textSchema = 0;
    uint32_t pageType = 0;
    int32_t advance = 50;
    std::vector<uint8_t> thumbName;  // raw string bytes for page 1; empty: the wide "a.page"
};

UstCharAttr Char(uint32_t code, int32_t advance) {
    UstCharAttr c = NewCharAttr();
    c.nChar = code;
    c.font.nCharSet = 1;
    c.font.nSize = 72;
    QStringToFixed(QStringLiteral("DejaVu Sans"), &c.font.szFace);
    c.clrFill = 0xFFFFCC00u;
    c.nBoxWidth = 40;
    c.nBoxHeight = 52;
    c.nOriginX = 3;
    c.nAdvance = advance;
    c.nOriginY = 52;
    return c;
}

void TextBody(CBytes& b, const QString& text, float x, float y, int32_t advance) {
    b.Version().I32(0).I32(1).I32(0);          // words, lock
    b.I32(0).I32(0).F32(x).F32(y);             // angle, typing, origin
    b.I32(static_cast<int32_t>(text.size()));  // characters
    b.Record(MakeDefaultEffect()).Record(MakeDefaultAttr());
    for (const QChar ch : text)
        b.Record(Char(ch.unicode(), advance));
}

void ShapeBody(CBytes& b) {
    UstEffect effect = MakeDefaultEffect();
    effect.nOutline = 2;
    b.Version().U32(1).I32(0).I32(1).I32(0).I32(15).I32(0);  // kind, words, lock, angle, edit
    b.I32(300).I32(400).I32(500).I32(520).F32(20.0f).F32(0.0f);
    b.Record(effect).Record(MakeDefaultAttr());
}

void PageHead(CBytes& b, uint32_t type, uint32_t objects, const std::vector<uint8_t>& thumb,
              const QString& thumbName, const QString& background) {
    b.Version().U32(type).U32(objects);
    if (thumb.empty())
        b.Wide(thumbName);
    else
        b.Raw(thumb.data(), thumb.size());
    b.U32(background.isEmpty() ? 0 : 1).Wide(background);
    b.I32(0).I32(2).F32(0.0f);
    b.Record(MakeDefaultPageEffect()).Record(MakeDefaultPageBlink());
}

// Two pages: a text and a turned rounded rectangle, then one more text. The
// classes take the map's entries 1 (page), 3 (text) and 5 (shape); the
// objects 2, 4, 6, 7 (second page) and 8.
CBytes HandBuilt(const UstKnobs& k = {}) {
    CBytes b;
    b.F32(1.3f).F32(0.0f).U32(0).U32(2).Wide("a.page").I32(k.width).I32(k.height).PadTo(128);
    b.Raw(k.listCount.data(), k.listCount.size());
    b.NewClass("CPageManager");
    PageHead(b, k.pageType, 2, k.thumbName, "a.page", "sky.png");
    b.U16(2).NewClass("CQRDObjectText", k.textSchema);
    TextBody(b, "Hi", 100.0f, 200.0f, k.advance);
    b.NewClass(k.shapeClass);
    ShapeBody(b);
    b.Raw(k.page2Tag.data(), k.page2Tag.size());
    PageHead(b, 1, 1, {}, "b.page", "");
    b.U16(1).Raw(k.page2ObjectTag.data(), k.page2ObjectTag.size());
    TextBody(b, "Roll", 50.0f, 1500.0f, k.advance);
    return b;
}

class HandBuiltFile : public testing::Test {
protected:
    QString Write(const CBytes& b, const char* name = "project.qrdprj") {
        const QString path = dir.filePath(name);
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(reinterpret_cast<const char*>(b.data.data()), static_cast<qint64>(b.Size()));
        return path;
    }
    // Loads the bytes into a project that holds one page already; on failure
    // that page must still be there and the file as it was.
    QString LoadError(const CBytes& b) {
        const QString path = Write(b, "damaged.qrdprj");
        CProjectManager project;
        project.InsertPage(-1);
        CPageManager* before = project.GetPage(0);
        QString error;
        EXPECT_EQ(project.LoadProject(path, &error), 0);
        EXPECT_EQ(project.PageCount(), 1);
        EXPECT_EQ(project.GetPage(0), before);
        EXPECT_EQ(test::ReadFile(path.toStdString()), b.Str());
        return error;
    }
    QTemporaryDir dir;
};

TEST_F(HandBuiltFile, LoadsItsPagesAndObjects) {
    CProjectManager project(640, 480);
    ASSERT_EQ(project.LoadProject(Write(HandBuilt())), 1);
    EXPECT_EQ(project.m_nWidth, 1920);
    EXPECT_EQ(project.m_nThumbHeight, 170);
    ASSERT_EQ(project.PageCount(), 2);
    const CPageManager& p1 = *project.GetPage(0);
    EXPECT_EQ(p1.m_nPageType, 0u);
    EXPECT_EQ(p1.m_strThumbFile, "a.page");
    EXPECT_EQ(p1.m_background.bPresent, 1);
    EXPECT_EQ(p1.m_background.strFile, "sky.png");
    ASSERT_EQ(p1.Objects().size(), 2u);
    ASSERT_EQ(p1.Objects()[0]->GetType(), OBJ_TEXT);
    const auto& text = static_cast<const CQRDObjectText&>(*p1.Objects()[0]);
    EXPECT_EQ(text.GetPlainText(), "Hi");
    EXPECT_EQ(text.m_fStoreX, 100.0f);
    EXPECT_EQ(text.Chars()[1].nAdvance, 50);
    ASSERT_EQ(p1.Objects()[1]->GetType(), OBJ_SHAPE);
    const auto& shape = static_cast<const CQRDObjectShape&>(*p1.Objects()[1]);
    EXPECT_EQ(shape.m_nKind, 1);
    EXPECT_EQ(shape.m_nAngle, 15);
    EXPECT_EQ(shape.m_rcStored, (UstRect{300, 400, 500, 520}));
    EXPECT_EQ(int32_t{shape.m_effect.nOutline}, 2);
    const CPageManager& p2 = *project.GetPage(1);
    EXPECT_EQ(p2.m_nPageType, 1u);
    ASSERT_EQ(p2.Objects().size(), 1u);
    EXPECT_EQ(p2.Objects()[0]->GetPlainText(), "Roll");
    EXPECT_EQ(p2.m_pDoc, &project);
}

TEST_F(HandBuiltFile, WriterGivesTheSameBytesBack) {
    const CBytes file = HandBuilt();
    CProjectManager project;
    ASSERT_EQ(project.LoadProject(Write(file)), 1);
    const QString copy = Write(file, "copy.qrdprj");
    QString error;
    ASSERT_EQ(project.SaveProject(copy, &error), 1) << error.toStdString();
    EXPECT_EQ(test::ReadFile(copy.toStdString()), file.Str());
}

TEST_F(HandBuiltFile, BigEscapesReadAsTheirShortForms) {
    UstKnobs k;
    k.page2Tag = {0xFF, 0x7F, 0x01, 0x00, 0x00, 0x80};  // class 1 behind the escape
    k.page2ObjectTag = {0xFF, 0x7F, 0x03, 0x00, 0x00, 0x80};
    CProjectManager project;
    ASSERT_EQ(project.LoadProject(Write(HandBuilt(k))), 1);
    EXPECT_EQ(project.GetPage(1)->Objects()[0]->GetPlainText(), "Roll");
    k.listCount = {0xFF, 0xFF, 2, 0, 0, 0};  // the count's escape
    ASSERT_EQ(project.LoadProject(Write(HandBuilt(k))), 1);
    EXPECT_EQ(project.PageCount(), 2);
}

TEST_F(HandBuiltFile, NarrowNamesReadInTheKoreanCodePage) {
    UstKnobs k;
    k.thumbName = {6, 0xB9, 0xE8, 0xB0, 0xE6, '.', 'p'};  // 배경.p
    CProjectManager project;
    ASSERT_EQ(project.LoadProject(Write(HandBuilt(k))), 1);
    EXPECT_EQ(project.GetPage(0)->m_strThumbFile, QString::fromUtf8("배경.p"));
}

TEST_F(HandBuiltFile, EachKindOfDamageIsRefusedWithItsReason) {
    struct UstCase {
        const char* name;
        UstKnobs knobs;
        const char* reason;
    };
    std::vector<UstCase> cases;
    auto add = [&](const char* name, const char* reason, auto change) {
        UstKnobs k;
        change(k);
        cases.push_back({name, k, reason});
    };
    add("unknown class", "unknown class 'CQRDObjectShapf'",
        [](UstKnobs& k) { k.shapeClass = "CQRDObjectShapf"; });
    add("class name no class has", "class name of 70 characters",
        [](UstKnobs& k) { k.shapeClass = std::string(70, 'C'); });
    add("schema", "CQRDObjectText with schema 1", [](UstKnobs& k) { k.textSchema = 1; });
    add("page count", "counts 268435456 entries",
        [](UstKnobs& k) { k.listCount = {0xFF, 0xFF, 0, 0, 0, 0x10}; });
    add("string", "string is longer than the rest of the file",
        [](UstKnobs& k) { k.thumbName = {0xFF, 0xFE, 0xFF, 0xFF, 0xF0, 0xFF}; });
    add("back-reference to a page", "CPageManager where an object belongs", [](UstKnobs& k) {
        k.page2ObjectTag = {0x02, 0x00};
    });
    add("object twice", "CQRDObjectText referred to twice", [](UstKnobs& k) {
        k.page2ObjectTag = {0x04, 0x00};
    });
    add("page twice", "CPageManager referred to twice", [](UstKnobs& k) {
        k.page2Tag = {0x02, 0x00};
    });
    add("forward reference", "entry 80, which was never read", [](UstKnobs& k) {
        k.page2ObjectTag = {0x50, 0x00};
    });
    add("class index of an object", "class index 2 that names no class", [](UstKnobs& k) {
        k.page2ObjectTag = {0x02, 0x80};
    });
    add("big escape to an object", "CPageManager where an object belongs",
        [](UstKnobs& k) { k.page2ObjectTag = {0xFF, 0x7F, 0x02, 0x00, 0x00, 0x00}; });
    add("page class in an object list", "CPageManager where an object belongs", [](UstKnobs& k) {
        k.page2ObjectTag = {0x01, 0x80};
    });
    add("object class in the page list", "CQRDObjectText where a page belongs", [](UstKnobs& k) {
        k.page2Tag = {0x03, 0x80};
    });
    add("null page", "empty page reference", [](UstKnobs& k) { k.page2Tag = {0x00, 0x00}; });
    add("null object", "empty object reference", [](UstKnobs& k) {
        k.page2ObjectTag = {0x00, 0x00};
    });
    add("frame", "a frame of 5000 x 5000", [](UstKnobs& k) { k.width = k.height = 5000; });
    add("page type", "page of unknown type 7", [](UstKnobs& k) { k.pageType = 7; });
    add("text out of reach", "a text lies outside any page",
        [](UstKnobs& k) { k.advance = 1 << 23; });  // four of them on the second page
    add("character out of reach", "a text has a character measured beyond reason",
        [](UstKnobs& k) { k.advance = 1 << 25; });
    for (const UstCase& c : cases) {
        const QString error = LoadError(HandBuilt(c.knobs));
        EXPECT_TRUE(error.contains(c.reason)) << c.name << ": " << error.toStdString();
    }
    UstKnobs typeSeven;
    typeSeven.pageType = 7;
    EXPECT_TRUE(LoadError(HandBuilt(typeSeven)).startsWith("damaged at byte 164: "));
}

TEST_F(HandBuiltFile, EveryCutBeforeTheListEndsFailsAndEveryCutAfterLoads) {
    CBytes whole = HandBuilt();
    const size_t listEnd = whole.Size();
    whole.Zeros(300);  // a tail that the reader never reaches
    // Byte by byte through the header, the first page and its class records;
    // in larger steps through the records of fixed size.
    for (size_t n = 0; n < whole.Size(); n += (n < 700 || n + 300 > listEnd ? 1 : 13)) {
        CBytes cut;
        cut.data.assign(whole.data.begin(), whole.data.begin() + static_cast<long>(n));
        CProjectManager project;
        QString error;
        const int loaded = project.LoadProject(Write(cut), &error);
        ASSERT_EQ(loaded, n >= listEnd ? 1 : 0) << n;
        if (!loaded) {
            EXPECT_FALSE(error.isEmpty()) << n;
        }
    }
}

TEST_F(HandBuiltFile, RandomBytesNeverLoadHalfway) {
    std::mt19937 rng(14);
    const CBytes good = HandBuilt();
    for (int round = 0; round < 400; ++round) {
        CBytes b;
        if (round % 2) {
            // A sound file with some bytes of its list changed at random.
            b = good;
            for (int i = 0; i < 1 + round % 7; ++i)
                b.data[128 + rng() % (b.Size() - 128)] = static_cast<uint8_t>(rng());
        } else {
            b.data.resize(rng() % 600);
            for (uint8_t& v : b.data)
                v = static_cast<uint8_t>(rng());
        }
        CProjectManager project;
        const int loaded = project.LoadProject(Write(b));
        if (loaded) {
            EXPECT_EQ(project.PageCount(), 2) << round;
        }
    }
}

void GroupHead(CBytes& b, uint16_t members) {
    b.Version().I32(0).I32(1).I32(0).I32(90).I32(150).I32(400).I32(320).U16(members);
}

// One page: a group holding a text, so that the text class is first met
// inside the group, then a text after the group by that known class. The
// entries: page class 1, page 2, group class 3, group 4, text class 5,
// texts 6 and 7.
CBytes GroupFile(std::vector<uint8_t> memberTag = {}, uint16_t members = 1) {
    CBytes b;
    b.F32(1.3f).F32(0.0f).U32(0).U32(1).Wide("g.page").I32(1920).I32(1080).PadTo(128);
    b.U16(1).NewClass("CPageManager");
    PageHead(b, 0, 2, {}, "g.page", "");
    b.U16(2).NewClass("CQRDObjectGroup");
    GroupHead(b, members);
    if (memberTag.empty()) {
        b.NewClass("CQRDObjectText");
    } else {
        b.Raw(memberTag.data(), memberTag.size());
    }
    TextBody(b, "In", 100.0f, 200.0f, 50);
    b.U16(0x8005);
    TextBody(b, "Out", 100.0f, 400.0f, 50);
    return b;
}

// Groups inside groups, depth of them, the innermost empty.
CBytes NestedFile(int depth) {
    CBytes b;
    b.F32(1.3f).F32(0.0f).U32(0).U32(1).Wide("").I32(1920).I32(1080).PadTo(128);
    b.U16(1).NewClass("CPageManager");
    PageHead(b, 0, 1, {}, "", "");
    b.U16(1).NewClass("CQRDObjectGroup");
    for (int level = 1; level <= depth; ++level) {
        GroupHead(b, level < depth ? 1 : 0);
        if (level < depth) b.U16(0x8003);
    }
    return b;
}

TEST_F(HandBuiltFile, AClassMetInsideAGroupIsKnownToLaterObjects) {
    const CBytes file = GroupFile();
    CProjectManager project;
    ASSERT_EQ(project.LoadProject(Write(file)), 1);
    const auto& objects = project.GetPage(0)->Objects();
    ASSERT_EQ(objects.size(), 2u);
    ASSERT_EQ(objects[0]->GetType(), OBJ_GROUP);
    const auto& group = static_cast<const CQRDObjectGroup&>(*objects[0]);
    ASSERT_EQ(group.Members().size(), 1u);
    EXPECT_EQ(group.Members()[0]->GetPlainText(), "In");
    EXPECT_TRUE(group.m_listOrder.empty());
    EXPECT_EQ(group.m_rcStored, (UstRect{90, 150, 400, 320}));
    EXPECT_EQ(objects[1]->GetPlainText(), "Out");
    const QString copy = Write(file, "copy.qrdprj");
    ASSERT_EQ(project.SaveProject(copy), 1);
    EXPECT_EQ(test::ReadFile(copy.toStdString()), file.Str());
}

TEST_F(HandBuiltFile, GroupsThatHoldThemselvesOrNestWithoutEndAreRefused) {
    EXPECT_TRUE(LoadError(GroupFile({0x04, 0x00})).contains("an object that contains itself"));
    EXPECT_TRUE(LoadError(GroupFile({0x02, 0x00})).contains("CPageManager where an object"));
    EXPECT_TRUE(LoadError(GroupFile({}, 0x7000)).contains("group counts 28672 members, more than"));
    CProjectManager deep;
    EXPECT_EQ(deep.LoadProject(Write(NestedFile(ARCHIVE_MAX_NESTING))), 1);
    const QString error = LoadError(NestedFile(ARCHIVE_MAX_NESTING + 1));
    EXPECT_TRUE(error.contains("groups nested too deeply")) << error.toStdString();
}

TEST(ArchiveWriter, ClassRecordsOnceAndBigIndicesBehindTheEscape) {
    // Pages enough that the shape class takes entry 0x7FFF, the first that
    // no longer fits the 15 bits beside the class tag.
    constexpr int PLAIN = 0x7FFC;
    std::vector<std::unique_ptr<CPageManager>> pages(PLAIN);
    for (auto& p : pages)
        p = std::make_unique<CPageManager>();
    CPageManager last;
    for (int i = 0; i < 2; ++i)
        last.AddObject(std::make_unique<CQRDObjectShape>(nullptr, 0, UstRect{0, 0, 10, 10},
                                                         MakeDefaultAttr(), MakeDefaultEffect()));
    CArchiveOut out;
    out.WriteCount(PLAIN + 1);
    for (const auto& p : pages)
        out.WritePage(*p);
    out.WritePage(last);
    const std::vector<uint8_t>& bytes = out.Bytes().Bytes();
    // The count, the class record, then 0x8001 before each later page.
    EXPECT_EQ(test::At<uint16_t>(bytes[0], 0), PLAIN + 1);
    EXPECT_EQ(test::At<uint16_t>(bytes[0], 2), 0xFFFF);
    const size_t pageBody = 102;
    const size_t second = 2 + 18 + pageBody;
    EXPECT_EQ(test::At<uint16_t>(bytes[0], second), 0x8001);
    EXPECT_EQ(test::At<uint16_t>(bytes[0], second + 2 + pageBody), 0x8001);
    // Entries: the page class 1, the pages 2 to 0x7FFD, the last page
    // 0x7FFE, the shape class 0x7FFF, the shapes 0x8000 and 0x8001.
    const size_t lastPage = second + (PLAIN - 1) * (2 + pageBody);
    EXPECT_EQ(test::At<uint16_t>(bytes[0], lastPage), 0x8001);
    const size_t shapeBody = 12 + 4 + 16 + 4 + 16 + 8 + 68 + 4008;
    const size_t firstShape = lastPage + 2 + pageBody;  // behind the list's count
    EXPECT_EQ(test::At<uint16_t>(bytes[0], firstShape), 0xFFFF);
    const size_t secondShape = firstShape + 6 + 15 + shapeBody;
    EXPECT_EQ(test::At<uint16_t>(bytes[0], secondShape), 0x7FFF);
    EXPECT_EQ(test::At<uint32_t>(bytes[0], secondShape + 2), 0x80007FFFu);
    EXPECT_EQ(bytes.size(), secondShape + 6 + shapeBody);

    // And the reader takes all of it back.
    CByteReader in(bytes);
    CArchiveIn ar(in);
    ASSERT_EQ(ar.ReadCount(2), uint32_t(PLAIN + 1));
    for (int i = 0; i < PLAIN; ++i)
        ar.ReadPage();
    EXPECT_EQ(ar.ReadPage()->Objects().size(), 2u);
    EXPECT_EQ(in.Remaining(), 0u);
}

TEST(ArchiveWriter, ASecondWriteIsABackReference) {
    CArchiveOut out;
    CPageManager page;
    out.WritePage(page);
    const size_t afterPage = out.Bytes().Size();
    out.WritePage(page);  // entry 2
    const std::vector<uint8_t>& b = out.Bytes().Bytes();
    EXPECT_EQ(b.size(), afterPage + 2);
    EXPECT_EQ(test::At<uint16_t>(b[0], afterPage), 2);
    test::CRectObject stray({0, 0, 1, 1});
    EXPECT_THROW(out.WriteObject(stray), std::logic_error);
}

}  // namespace
}  // namespace orv
