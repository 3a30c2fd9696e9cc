#pragma once
// A 1920 x 1080 view at 100 percent that only lends its canvas to a page.

#include <vector>

#include "project/page_host.h"
#include "project/settings_records.h"

class CBenchView : public orv::CPageView {
public:
    CBenchView() : canvas(1920 * 1080, 0), env(orv::MakeDefaultEnv(9)) {}
    orv::UstViewFrame GetViewFrame() override {
        return {{0, 0, 1920, 1080}, 1920, 1080, 0, 0, canvas.data()};
    }
    const orv::UstEnv& Env() const override { return env; }
    float Zoom() const override { return 100.0f; }
    const QImage* BackdropImage() override { return nullptr; }
    void SetPageType(uint32_t, bool) override {}
    int SetScrollBar(uint32_t, int origin, int) override { return origin; }
    void InvalidateRect(const orv::UstRect&) override {}
    void Repaint() override {}
    std::vector<uint32_t> canvas;
    orv::UstEnv env;
};
