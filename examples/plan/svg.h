// A drawing in SVG. All lengths are millimetres on the sheet, y runs down.
#ifndef PLAN_SVG_H
#define PLAN_SVG_H

#include <string>

#include "region.h"

namespace plan {

struct Pen {
  const char* stroke = "none";
  double width = 0;
  const char* fill = "none";
  const char* dash = "";
};

struct TextStyle {
  double size = 2.5;
  const char* anchor = "start";  // start, middle or end
  const char* colour = "#222222";
  bool bold = false;
  double turn = 0;  // degrees, about its own place
};

class Svg {
 public:
  Svg(double width, double height);

  void Area(const Region& region, const Pen& pen);  // filled by the even-odd rule
  void Line(Vec2 from, Vec2 to, const Pen& pen);
  void Arc(Vec2 from, Vec2 to, double radius, bool clockwise, const Pen& pen);  // at most half a circle
  void Circle(Vec2 middle, double radius, const Pen& pen);
  void Rectangle(Vec2 corner, Vec2 size, const Pen& pen);
  void Text(Vec2 at, const std::string& text, const TextStyle& style);  // UTF-8

  // False if the file cannot be written.
  bool Save(const std::string& path) const;

 private:
  std::string text;
};

}  // namespace plan

#endif
