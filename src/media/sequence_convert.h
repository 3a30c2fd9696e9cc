#pragma once
// A numbered sequence of TGA or PNG files converted once into an ANI32
// file. Every frame has the size of the first file; a file of another size,
// or one that does not load, is left out and keeps offset 0.

#include <QString>
#include <QStringList>

namespace orv {

// What a long conversion shows while it runs: the editor a progress
// dialog, the command line a line on the terminal.
class CConvertProgress {
public:
    virtual ~CConvertProgress() = default;
    virtual void SetStatus(const QString& text) = 0;
    virtual void SetPosition(int percent) = 0;
};

enum class ESequenceResult { WRITTEN, CANNOT_CREATE, NO_SIZE };

struct UstSequenceReport {
    ESequenceResult result = ESequenceResult::NO_SIZE;
    int nFrames = 0;   // frames in the file's count: the list's length
    int nWritten = 0;  // frames that were written
    int nWidth = 0, nHeight = 0;
};

// Writes the files, each joined to the source folder (empty, or ending in
// a separator), as the frames of the ANI32 file at the path. Nothing stays
// at the path when the result is not WRITTEN.
UstSequenceReport WriteSequenceAni32(const QStringList& files, const QString& sourceFolder,
                                     const QString& path, CConvertProgress* progress);

// Converts into a new file with a timestamp name in the target folder.
// The new file's name, or empty on failure (the editor then says "Failed
// converting TGA(PNG) sequence files to animation file.").
QString ConvertSequenceToAni32(const QStringList& files, const QString& sourceFolder,
                               const QString& targetFolder, CConvertProgress* progress);

}  // namespace orv
