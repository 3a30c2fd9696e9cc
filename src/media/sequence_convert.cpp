#include "media/sequence_convert.h"

#include <QDir>
#include <QFile>

#include <memory>
#include <new>

#include "media/ani32_writer.h"
#include "media/timestamp_name.h"
#include "render/image_file.h"

namespace orv {

UstSequenceReport WriteSequenceAni32(const QStringList& files, const QString& sourceFolder,
                                     const QString& path, CConvertProgress* progress) {
    UstSequenceReport report;
    report.nFrames = static_cast<int>(files.size());
    if (files.isEmpty()) return report;
    GetImageSize(sourceFolder + files.first(), report.nWidth, report.nHeight);
    if (report.nWidth <= 0 || report.nHeight <= 0) return report;
    const size_t pixels = static_cast<size_t>(report.nWidth) * report.nHeight;
    std::unique_ptr<uint32_t[]> block(new (std::nothrow) uint32_t[pixels]);
    CAni32Writer writer;
    if (!block || !writer.Create(path, report.nFrames, report.nWidth, report.nHeight)) {
        report.result = ESequenceResult::CANNOT_CREATE;
        QFile::remove(path);
        return report;
    }
    int shown = -1;
    for (int i = 0; i < report.nFrames; ++i) {
        if (progress) progress->SetStatus(QString::asprintf("%d / %d", i, report.nFrames));
        const QString file = sourceFolder + files[i];
        if (LoadImageFileInto(file, report.nWidth, report.nHeight, block.get()))
            writer.WriteFrame(i, block.get());
        const int percent = static_cast<int>(qint64{i} * 100 / report.nFrames);
        if (progress && percent != shown) progress->SetPosition(shown = percent);
    }
    report.nWritten = writer.FramesWritten();
    if (!writer.Finish()) {
        QFile::remove(path);
        report.result = ESequenceResult::CANNOT_CREATE;
        return report;
    }
    report.result = ESequenceResult::WRITTEN;
    return report;
}

QString ConvertSequenceToAni32(const QStringList& files, const QString& sourceFolder,
                               const QString& targetFolder, CConvertProgress* progress) {
    const QString name = FreeTimestampName(targetFolder, QStringLiteral("ANI32"));
    if (name.isEmpty()) return {};
    const UstSequenceReport report =
        WriteSequenceAni32(files, sourceFolder, QDir(targetFolder).filePath(name), progress);
    return report.result == ESequenceResult::WRITTEN ? name : QString();
}

}  // namespace orv
