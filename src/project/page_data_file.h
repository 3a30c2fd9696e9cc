#pragma once
// data.json beside project.qrdprj: the field values and update choice of
// each page, kept out of the project file so that its bytes stay as they
// are. Pages are counted from 1 as the operator counts them.

#include <QString>

#include <vector>

namespace orv {

class CPageManager;

constexpr const char* PAGE_DATA_FILE = "data.json";
// A data file larger than this is not read: it can only be a mistake.
constexpr qint64 PAGE_DATA_MAX_BYTES = 16 << 20;

// Reads the file in `folder` into the pages. A missing file is no error;
// a damaged one leaves every page's data as it was, is moved aside as
// data.json.damaged (then .damaged.2, ...) and the error names it.
bool LoadPageData(const QString& folder, const std::vector<CPageManager*>& pages,
                  QString* error = nullptr);
// Writes the file whole, or leaves the old one when writing fails.
bool SavePageData(const QString& folder, const std::vector<CPageManager*>& pages,
                  QString* error = nullptr);

}  // namespace orv
