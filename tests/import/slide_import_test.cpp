// Slide shows into pages, through the real converter: pictures in the
// project's folder, one page per slide, and nothing left behind when the
// import does not go through.
#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>

#include "import/slide_import.h"
#include "project/project_manager.h"
#include "support/rect_object.h"
#include "test_util.h"

namespace orv {
namespace {

const QColor SLIDE_COLOURS[] = {QColor(200, 30, 30), QColor(30, 160, 40), QColor(20, 40, 190)};

// A flat OpenDocument presentation of 16:9 slides, each filled with its
// colour and carrying a title.
std::string FlatOdp(int slides) {
    std::string xml =
        R"(<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0"
 xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0"
 xmlns:presentation="urn:oasis:names:tc:opendocument:xmlns:presentation:1.0"
 xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"
 xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
 office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.presentation">
<office:styles/>
<office:automatic-styles>
 <style:page-layout style:name="PM1"><style:page-layout-properties fo:page-width="28cm"
  fo:page-height="15.75cm" fo:margin-top="0cm" fo:margin-bottom="0cm" fo:margin-left="0cm"
  fo:margin-right="0cm" style:print-orientation="landscape"/></style:page-layout>
)";
    for (int i = 0; i < 3; ++i) {
        const QColor c = SLIDE_COLOURS[i];
        xml += "<style:style style:name=\"gr" + std::to_string(i) +
               "\" style:family=\"graphic\"><style:graphic-properties draw:stroke=\"none\" "
               "draw:fill=\"solid\" draw:fill-color=\"" +
               c.name().toStdString() + "\"/></style:style>\n";
    }
    xml += R"(</office:automatic-styles>
<office:master-styles><style:master-page style:name="Default" style:page-layout-name="PM1"/>
</office:master-styles>
<office:body><office:presentation>
)";
    for (int i = 0; i < slides; ++i) {
        xml += "<draw:page draw:name=\"s" + std::to_string(i + 1) +
               "\" draw:master-page-name=\"Default\">"
               "<draw:rect draw:style-name=\"gr" +
               std::to_string(i % 3) +
               "\" svg:x=\"0cm\" svg:y=\"0cm\" svg:width=\"28cm\" svg:height=\"15.75cm\"/>"
               "<draw:frame svg:x=\"2cm\" svg:y=\"2cm\" svg:width=\"20cm\" svg:height=\"3cm\">"
               "<draw:text-box><text:p>Slide " +
               std::to_string(i + 1) + "</text:p></draw:text-box></draw:frame></draw:page>\n";
    }
    xml += "</office:presentation></office:body></office:document>\n";
    return xml;
}

class SlideImport : public testing::Test {
protected:
    SlideImport() : view(480, 270) {}
    void SetUp() override {
        folder = dir.path() + "/";
        QDir(folder).mkpath("Data");
        project.SetFolder(folder);
        project.AttachAll(&view);
    }
    QString Write(const char* name, const std::string& bytes) {
        const auto path = test::TempPath(dir, name);
        test::WriteFile(path, bytes);
        return QString::fromStdString(path.string());
    }
    QStringList ObjectFiles() const { return QDir(folder + "Object").entryList(QDir::Files); }
    // The page as it goes to air, at the project's frame.
    QImage Draw(int index) {
        QImage image(project.m_nWidth, project.m_nHeight, QImage::Format_ARGB32_Premultiplied);
        project.GetPage(index)->DrawToImage(reinterpret_cast<uint32_t*>(image.bits()),
                                            image.width(), image.height());
        return image;
    }
    // A failed import: no page, no picture, no thumbnail left over.
    void ExpectUnchanged(const UstSlideReport& report) {
        EXPECT_NE(report.result, ESlideResult::DONE);
        EXPECT_EQ(report.nPages, 0);
        EXPECT_EQ(project.PageCount(), 1);
        EXPECT_TRUE(ObjectFiles().isEmpty());
        EXPECT_EQ(QDir(folder + "Data").entryList(QDir::Files).size(), dataFiles);
    }
    QTemporaryDir dir;
    QString folder;
    test::CFakeView view;
    CProjectManager project;
    int dataFiles = 1;  // the first page's thumbnail
};

bool NearColour(QRgb pixel, const QColor& want) {
    return std::abs(qRed(pixel) - want.red()) < 12 && std::abs(qGreen(pixel) - want.green()) < 12 &&
           std::abs(qBlue(pixel) - want.blue()) < 12 && qAlpha(pixel) == 255;
}

TEST_F(SlideImport, ThreeSlidesBecomeThreePagesWithPlainBmpBackgrounds) {
    const UstSlideReport report = ImportPowerPoint(project, Write("show.fodp", FlatOdp(3)), true);
    ASSERT_EQ(report.result, ESlideResult::DONE) << report.strDetail.toStdString();
    EXPECT_EQ(report.nPages, 3);
    ASSERT_EQ(project.PageCount(), 4);
    EXPECT_FALSE(project.CanUndo());
    const QStringList files = ObjectFiles();
    ASSERT_EQ(files.size(), 3);
    for (int i = 1; i <= 3; ++i) {
        const CPageManager* page = project.GetPage(i);
        const QString name = page->m_background.strFile;
        EXPECT_TRUE(name.endsWith(QString::number(i) + ".BMP"));
        EXPECT_EQ(name.size(), 17 + QString::number(i).size() + 4);  // timestamp, number, .BMP
        const std::string bytes = test::ReadFile((folder + "Object/" + name).toStdString());
        ASSERT_GT(bytes.size(), 54u);
        EXPECT_EQ(bytes.substr(0, 2), "BM");
        EXPECT_EQ(test::At<uint16_t>(bytes[0], 28), 24);  // bits per pixel
        // 28 cm is 793.7 points: the slide's own size in a 16:9 project.
        EXPECT_EQ(test::At<int32_t>(bytes[0], 18), 794);
        EXPECT_EQ(test::At<int32_t>(bytes[0], 22), 446);
        // The slide is stretched over the whole frame.
        const QImage frame = Draw(i);
        for (const QPoint p : {QPoint(4, 4), QPoint(1915, 1075), QPoint(1800, 600)})
            EXPECT_TRUE(NearColour(frame.pixel(p), SLIDE_COLOURS[i - 1]))
                << "slide " << i << " at " << p.x() << "," << p.y();
    }
}

TEST_F(SlideImport, TwentySlidesAreTimed) {
    QElapsedTimer clock;
    clock.start();
    const UstSlideReport report = ImportPowerPoint(project, Write("long.fodp", FlatOdp(20)), true);
    const double seconds = static_cast<double>(clock.elapsed()) / 1000.0;
    ASSERT_EQ(report.result, ESlideResult::DONE) << report.strDetail.toStdString();
    EXPECT_EQ(project.PageCount(), 21);
    std::printf("[ timing ] 20 slides imported in %.2f s (%.0f ms per slide)\n", seconds,
                seconds * 1000.0 / 20.0);
}

TEST_F(SlideImport, PdfPagesDirectlyAndAFourByThreeFrame) {
    project.SetFrame(720, 486);
    const QString pdf = dir.path() + "/two.pdf";
    {
        QPdfWriter writer(pdf);
        writer.setPageSize(QPageSize(QSizeF(254, 142.875), QPageSize::Millimeter));
        writer.setPageMargins({});
        QPainter p(&writer);
        p.fillRect(p.viewport(), SLIDE_COLOURS[0]);
        writer.newPage();
        p.fillRect(p.viewport(), SLIDE_COLOURS[2]);
    }
    const UstSlideReport report = ImportPowerPoint(project, pdf, true);
    ASSERT_EQ(report.result, ESlideResult::DONE) << report.strDetail.toStdString();
    ASSERT_EQ(project.PageCount(), 3);
    const std::string bmp = test::ReadFile(
        (folder + "Object/" + project.GetPage(2)->m_background.strFile).toStdString());
    EXPECT_EQ(test::At<int32_t>(bmp[0], 18), 640);
    EXPECT_EQ(test::At<int32_t>(bmp[0], 22), 480);
    EXPECT_TRUE(NearColour(Draw(2).pixel(700, 480), SLIDE_COLOURS[2]));
}

TEST_F(SlideImport, BadFilesLeaveTheProjectAsItWas) {
    ExpectUnchanged(ImportPowerPoint(project, Write("damaged.pptx", "PK\x03\x04 not a zip"), true));
    ExpectUnchanged(ImportPowerPoint(project,
                                     Write("empty.pdf",
                                           "%PDF-1.4\n1 0 obj << /Type /Catalog /Pages 2 0 "
                                           "R >> endobj\n2 0 obj << /Type /Pages /Kids [] "
                                           "/Count 0 >> endobj\ntrailer << /Root 1 0 R "
                                           ">>\n%%EOF\n"),
                                     true));
    ExpectUnchanged(ImportPowerPoint(project, Write("noise.pdf", std::string(3000, '\x7f')), true));
    ExpectUnchanged(ImportPowerPoint(project, folder + "missing.pptx", true));
}

// A stand-in for the converter that never finishes, and none at all.
TEST_F(SlideImport, AHangingOrMissingConverter) {
    const QByteArray path = qgetenv("PATH");
    const QString bin = dir.path() + "/bin";
    QDir().mkpath(bin);
    test::WriteFile((bin + "/soffice").toStdString(), "#!/bin/sh\nexec /bin/sleep 60\n");
    QFile::setPermissions(bin + "/soffice", QFile::ReadOwner | QFile::ExeOwner);
    qputenv("PATH", bin.toLocal8Bit());
    QElapsedTimer clock;
    clock.start();
    const UstSlideReport hung =
        ImportPowerPoint(project, Write("a.pptx", "x"), true, nullptr, 1500);
    EXPECT_EQ(hung.result, ESlideResult::TIMED_OUT);
    EXPECT_LT(clock.elapsed(), 10000);
    ExpectUnchanged(hung);
    QFile::remove(bin + "/soffice");
    const UstSlideReport missing = ImportPowerPoint(project, Write("b.pptx", "x"), true);
    qputenv("PATH", path);
    EXPECT_EQ(missing.result, ESlideResult::NO_CONVERTER);
    ExpectUnchanged(missing);
}

class CCancelAt : public CSlideProgress {
public:
    CCancelAt(ESlideStage stage, int index) : m_stage(stage), m_index(index) {}
    void Stage(ESlideStage stage, int index, int) override {
        m_bCancel = m_bCancel || (stage == m_stage && index == m_index);
    }
    bool Cancelled() override { return m_bCancel; }

private:
    ESlideStage m_stage;
    int m_index;
    bool m_bCancel = false;
};

TEST_F(SlideImport, CancelLeavesTheProjectAsItWas) {
    const QString pdf = dir.path() + "/three.pdf";
    {
        QPdfWriter writer(pdf);
        QPainter p(&writer);
        for (int i = 0; i < 3; ++i) {
            if (i) writer.newPage();
            p.fillRect(p.viewport(), SLIDE_COLOURS[i]);
        }
    }
    CCancelAt extracting(ESlideStage::EXTRACTING, 2);
    EXPECT_EQ(ImportPowerPoint(project, pdf, true, &extracting).result, ESlideResult::CANCELLED);
    ExpectUnchanged({ESlideResult::CANCELLED, 0, {}});
    CCancelAt inserting(ESlideStage::INSERTING, 3);
    EXPECT_EQ(ImportPowerPoint(project, pdf, true, &inserting).result, ESlideResult::CANCELLED);
    ExpectUnchanged({ESlideResult::CANCELLED, 0, {}});
}

}  // namespace
}  // namespace orv
