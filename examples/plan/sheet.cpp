#include "sheet.h"

#include <algorithm>

#include "labels.h"

namespace plan {
namespace {

constexpr double kMargin = 8;   // paper edge to frame
constexpr double kTitle = 18;   // height of the title block
constexpr double kAround = 18;  // frame to building: the dimensions
const Pen kFrame = {"#222222", 0.5};

struct Format {
  const char* name;
  double width, height;
};
const Format kFormats[] = {{"A4", 297, 210}, {"A4", 210, 297}, {"A3", 420, 297}, {"A3", 297, 420}};
const int kScales[] = {50, 100, 200, 500, 1000};

// The room for the building on a sheet.
Vec2 RoomOn(const Format& format) {
  return {format.width - 2 * (kMargin + kAround), format.height - 2 * (kMargin + kAround) - kTitle};
}

bool Fits(Vec2 metres, Vec2 room, int scale) {
  return metres.x * 1000 / scale <= room.x && metres.y * 1000 / scale <= room.y;
}

// Four parts of a round length, black and white in turn.
void DrawScaleBar(const Sheet& sheet, Vec2 right, Svg* svg) {
  double part = 10;
  for (const double metres : {5.0, 2.0, 1.0, 0.5}) {
    if (sheet.Millimetres(part * 4) > 60) part = metres;
  }
  const double step = sheet.Millimetres(part);
  const Vec2 start = {right.x - 4 * step, right.y};
  for (int i = 0; i < 4; ++i) {
    svg->Rectangle(start + Vec2{i * step, 0}, {step, 1.6}, {"#222222", 0.2, i % 2 ? "white" : "#222222"});
  }
  for (int i = 0; i <= 4; ++i) {
    const std::string label = NumberText(part * i, part < 1 ? 1 : 0) + (i == 4 ? " m" : "");
    svg->Text(start + Vec2{i * step, -1.2}, label, {2.2, "middle"});
  }
}

std::string LevelText(double elevation) {
  const char* sign = std::fabs(elevation) < 0.005 ? "±" : elevation > 0 ? "+" : "−";
  return sign + NumberText(std::fabs(elevation), 2);
}

}  // namespace

Sheet SheetFor(const std::vector<FloorPlan>& plans) {
  Sheet sheet;
  for (const FloorPlan& plan : plans) {
    const Box box = plan.Bounds();
    if (box.IsEmpty()) continue;
    sheet.building.Take(box.low);
    sheet.building.Take(box.high);
  }
  const Vec2 size = sheet.building.Size();
  const Format* format = &kFormats[2];
  sheet.scale = kScales[4];
  for (const int scale : kScales) {
    const auto* found = std::find_if(std::begin(kFormats), std::end(kFormats),
                                     [&](const Format& f) { return Fits(size, RoomOn(f), scale); });
    if (found == std::end(kFormats)) continue;
    format = found;
    sheet.scale = scale;
    break;
  }
  sheet.format = format->name;
  sheet.width = format->width;
  sheet.height = format->height;
  const double middle = (format->height - kTitle) / 2;
  sheet.corner = {(format->width - sheet.Millimetres(size.x)) / 2, middle + sheet.Millimetres(size.y) / 2};
  return sheet;
}

void DrawFrame(const Sheet& sheet, const std::string& project, const FloorPlan& plan, Svg* svg) {
  const double right = sheet.width - kMargin, bottom = sheet.height - kMargin;
  svg->Rectangle({kMargin, kMargin}, {right - kMargin, bottom - kMargin}, kFrame);
  svg->Line({kMargin, bottom - kTitle}, {right, bottom - kTitle}, kFrame);
  const Vec2 left = {kMargin + 5, bottom - kTitle};
  svg->Text(left + Vec2{0, 7.5}, plan.name, {5, "start", "#222222", true});
  svg->Text(left + Vec2{0, 13.5},
            "Floor plan, level " + LevelText(plan.elevation) + " m, cut " + NumberText(kCutAboveFloor, 2) +
                " m above the floor",
            {2.6, "start"});
  svg->Text({sheet.width / 2, left.y + 7.5}, project, {3.2, "middle"});
  svg->Text({sheet.width / 2, left.y + 13.5},
            "Scale 1:" + std::to_string(sheet.scale) + ", " + sheet.format + "  ·  lengths in metres", {2.6, "middle"});
  DrawScaleBar(sheet, {right - 10, bottom - 8}, svg);
}

}  // namespace plan
