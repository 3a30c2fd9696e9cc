#pragma once
// Objects made by their kind number, as packed states and pasted records
// name them.

#include <memory>

#include "objects/qrd_object.h"

namespace orv {

// An empty object of the kind on the page, or null for a kind that does
// not exist.
std::unique_ptr<CQRDObject> CreateObjectOfType(int type, CPageContext* page);

}  // namespace orv
