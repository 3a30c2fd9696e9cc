#include "objects/object_factory.h"

#include "objects/ani_object.h"
#include "objects/group_object.h"
#include "objects/picture_object.h"
#include "objects/shape_object.h"
#include "objects/tc_object.h"
#include "objects/text_object.h"

namespace orv {

std::unique_ptr<CQRDObject> CreateObjectOfType(int type, CPageContext* page) {
    std::unique_ptr<CQRDObject> object;
    switch (type) {
        case OBJ_TEXT:
            object = std::make_unique<CQRDObjectText>();
            break;
        case OBJ_SHAPE:
            object = std::make_unique<CQRDObjectShape>();
            break;
        case OBJ_PICTURE:
            object = std::make_unique<CQRDObjectPicture>();
            break;
        case OBJ_ANIMATION:
            object = std::make_unique<CQRDObjectAni>();
            break;
        case OBJ_TIMER:
            object = std::make_unique<CQRDObjectTC>();
            break;
        case OBJ_GROUP:
            object = std::make_unique<CQRDObjectGroup>();
            break;
        default:
            return nullptr;
    }
    object->m_pPage = page;
    return object;
}

}  // namespace orv
