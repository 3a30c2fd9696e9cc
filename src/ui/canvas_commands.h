#pragma once
// The numbers of the canvas's commands that have no home elsewhere.

#include <cstdint>

namespace orv {

enum ECanvasCommand : uint32_t {
    CMD_EDIT_TEXT_MODE = 207,
    CMD_SELECT_MODE = 208,
    CMD_JUMP_TO_PAGE = 8000,
    CMD_PREVIOUS_PAGE = 8102,
    CMD_NEXT_PAGE = 8103,
    CMD_END_EDIT = 8104,
    CMD_NEXT_OBJECT = 8105,
    CMD_PREVIOUS_OBJECT = 8106,
    CMD_FIND = 57636,
    CMD_SELECT_ALL = 57642,
    CMD_PAGE_OVERVIEW = 8110
};

}  // namespace orv
