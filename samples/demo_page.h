#pragma once
// The built-in sample page: a lower third, a heading with a hard shadow, a
// turned badge, a Korean line, every shape kind, a picture with its own
// alpha and a keyed one. It is a new user's first look at what the renderer
// does and a smoke test of all of its layers.

#include <QImage>
#include <QString>

#include <memory>
#include <vector>

#include "objects/qrd_object.h"
#include "render/geometry.h"

namespace orv {

constexpr int DEMO_WIDTH = 1920, DEMO_HEIGHT = 1080;

// The lower third's main bar, in page pixels.
UstRect DemoLowerThirdBar();

// The boxes of the emblem, which has its own alpha, and of the keyed
// green-screen picture.
UstRect DemoEmblemBox();
UstRect DemoWeatherBox();

// The box the shape of a kind (0 to 27) stands in; the kinds fill two rows.
UstRect DemoShapeBox(int kind);

// The page's objects in drawing order, at full scale and on no page.
std::vector<std::unique_ptr<CQRDObject>> BuildDemoPage();

// The objects drawn in order onto a cleared, transparent block of the
// page's size, premultiplied.
QImage RenderDemoPage();

// Writes the image as a PNG that keeps its transparency. False, with a
// message naming the file, when it cannot be written.
bool SavePngFile(const QImage& image, const QString& path, QString* error);

}  // namespace orv
