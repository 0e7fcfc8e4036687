#include "sheet.h"

#include <algorithm>
#include <iterator>

#include "labels.h"

namespace plan {
namespace {

constexpr double kMargin = 8;       // paper edge to frame
constexpr double kTitle = 18;       // height of the title block
constexpr double kBefore = 20;      // frame to building, left and below: the dimensions
constexpr double kAfter = 16;       // frame to building, right and above: the north arrow
constexpr double kSideColumn = 72;  // of the title block
constexpr double kIndent = 5;
const Pen kFrame = {"#222222", 0.5};
const Pen kInk = {"#222222", 0.2, "#222222"};

struct Format {
  const char* name;
  double width, height;
  // What is left for the building.
  Vec2 Space() const {
    return {width - 2 * kMargin - kBefore - kAfter, height - 2 * kMargin - kTitle - kBefore - kAfter};
  }
};
const Format kFormats[] = {{"A4", 297, 210}, {"A4", 210, 297}, {"A3", 420, 297}, {"A3", 297, 420}};
const int kScales[] = {20, 50, 75, 100, 125, 150, 200, 250, 300, 400, 500, 750, 1000, 2000, 5000};

// The smallest format for a size in metres; null if even the largest is too small.
const Format* FormatFor(Vec2 metres, int scale) {
  const auto* found = std::find_if(std::begin(kFormats), std::end(kFormats), [&](const Format& format) {
    const Vec2 space = format.Space();
    return metres.x * 1000 / scale <= space.x && metres.y * 1000 / scale <= space.y;
  });
  return found == std::end(kFormats) ? nullptr : found;
}

// The text in the letter size, or in a smaller one if it would be wider than its column.
void FittedText(Vec2 at, const std::string& text, double column, TextStyle style, Svg* svg) {
  const double width = TextWidth(text, style.size) * (style.bold ? 1.08 : 1);
  if (width > column) style.size *= column / width;
  svg->Text(at, text, style);
}

// Four parts of a round length, black and white in turn.
void DrawScaleBar(const Sheet& sheet, Vec2 right, Svg* svg) {
  double part = 10;
  for (const double metres : {5.0, 2.0, 1.0, 0.5}) {
    if (sheet.Millimetres(part * 4) > kSideColumn - 2 * kIndent) part = metres;
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

// A circle with a needle, of which the half that points north is black.
void DrawNorth(Vec2 middle, Vec2 north, Svg* svg) {
  constexpr double kRadius = 4.2;
  const double length = Length(north);
  if (length <= 0) return;
  const Vec2 up = Vec2{north.x, -north.y} * (1 / length);  // the sheet's y runs down
  const Vec2 side = Vec2{-up.y, up.x} * 1.1;
  svg->Circle(middle, kRadius, {"#222222", 0.2});
  svg->Area({{middle + up * kRadius, middle + side, middle - side}}, kInk);
  svg->Area({{middle - up * kRadius, middle + side, middle - side}}, {"#222222", 0.2, "white"});
  svg->Text(middle + up * (kRadius + 2) + Vec2{0, 1}, "N", {2.8, "middle", "#222222", true});
}

std::string LevelText(double level) {
  const char* sign = std::fabs(level) < 0.005 ? "±" : level > 0 ? "+" : "−";
  return sign + NumberText(std::fabs(level), 2);
}

}  // namespace

int ScaleFor(const std::vector<FloorPlan>& plans) {
  for (const int scale : kScales) {
    const bool fits = std::all_of(plans.begin(), plans.end(), [&](const FloorPlan& plan) {
      return plan.IsEmpty() || FormatFor(plan.Bounds().Size(), scale);
    });
    if (fits) return scale;
  }
  return *std::rbegin(kScales);
}

Sheet SheetFor(const FloorPlan& plan, int scale) {
  Sheet sheet;
  sheet.scale = scale;
  sheet.drawn = plan.Bounds();
  const Vec2 size = sheet.drawn.Size();
  const Format* format = FormatFor(size, scale);
  if (!format) format = &kFormats[2];
  sheet.format = format->name;
  sheet.width = format->width;
  sheet.height = format->height;
  const Vec2 spare = format->Space() - Vec2{sheet.Millimetres(size.x), sheet.Millimetres(size.y)};
  sheet.corner = {kMargin + kBefore + spare.x / 2, format->height - kMargin - kTitle - kBefore - spare.y / 2};
  return sheet;
}

void DrawFrame(const Sheet& sheet, const Caption& caption, const FloorPlan& plan, Svg* svg) {
  const double right = sheet.width - kMargin, bottom = sheet.height - kMargin;
  svg->Rectangle({kMargin, kMargin}, {right - kMargin, bottom - kMargin}, kFrame);
  svg->Line({kMargin, bottom - kTitle}, {right, bottom - kTitle}, kFrame);
  const Vec2 left = {kMargin + kIndent, bottom - kTitle};
  const double side = kSideColumn - kIndent;
  FittedText(left + Vec2{0, 7.5}, plan.name, side, {5, "start", "#222222", true}, svg);
  FittedText(
      left + Vec2{0, 13.5},
      "Floor plan, level " + LevelText(plan.level) + " m, cut " + NumberText(kCutAboveFloor, 2) + " m above the floor",
      side, {2.6, "start"}, svg);
  const double middle = sheet.width - 2 * (kMargin + kSideColumn);
  FittedText({sheet.width / 2, left.y + 7.5}, caption.project, middle, {3.2, "middle"}, svg);
  FittedText({sheet.width / 2, left.y + 13.5},
             "Scale 1:" + std::to_string(sheet.scale) + ", " + sheet.format + "  ·  lengths in metres", middle,
             {2.6, "middle"}, svg);
  DrawScaleBar(sheet, {right - 2 * kIndent, bottom - 8}, svg);
  if (caption.hasNorth) DrawNorth({right - 9, kMargin + 9}, caption.north, svg);
  if (!caption.note.empty()) svg->Text({left.x, kMargin + 6}, caption.note, {2.6, "start", "#a03020"});
}

}  // namespace plan
