// libFuzzer target for the project reader: any bytes at all must load or be
// refused without reading past them, without undefined behaviour, and
// within bounded memory. A file that loads must write out as a file that
// loads again and writes out the same bytes.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <vector>

#include "project/archive.h"
#include "project/project_manager.h"

namespace {

QByteArray Saved(const orv::CProjectManager& project) {
    orv::CByteWriter header;
    orv::CArchiveOut list;
    project.Serialize(header, list);
    QByteArray file(reinterpret_cast<const char*>(header.Bytes().data()),
                    static_cast<qsizetype>(header.Size()));
    // The list stands at its offset, over a header too long for its area.
    file.resize(orv::PROJECT_HEADER_AREA, '\0');
    const std::vector<uint8_t>& pages = list.Bytes().Bytes();
    file.append(reinterpret_cast<const char*>(pages.data()), static_cast<qsizetype>(pages.size()));
    return file;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    orv::CProjectManager project;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (!project.LoadProjectBytes(bytes, QString())) {
        if (project.PageCount() != 0) __builtin_trap();  // nothing half-loaded
        return 0;
    }
    const QByteArray first = Saved(project);
    orv::CProjectManager again;
    QString error;
    if (!again.LoadProjectBytes(first, QString(), &error)) {
        std::fprintf(stderr, "the written file does not load: %s\n", qPrintable(error));
        __builtin_trap();
    }
    if (Saved(again) != first) {
        std::fprintf(stderr, "the written file writes out other bytes\n");
        __builtin_trap();
    }
    return 0;
}
