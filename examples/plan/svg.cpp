#include "svg.h"

#include <cstddef>
#include <fstream>

#include "labels.h"

namespace plan {
namespace {

std::string Number(double value) { return NumberText(value, 3); }

std::string Pair(Vec2 point) { return Number(point.x) + " " + Number(point.y); }

std::string Attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + value + "\"";
}

std::string PenAttributes(const Pen& pen) {
  std::string text = Attribute("fill", pen.fill) + Attribute("stroke", pen.stroke);
  if (pen.width > 0) text += Attribute("stroke-width", Number(pen.width));
  if (*pen.dash) text += Attribute("stroke-dasharray", pen.dash);
  return text;
}

std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&') {
      escaped += "&amp;";
    } else if (c == '<') {
      escaped += "&lt;";
    } else if (c == '>') {
      escaped += "&gt;";
    } else if (static_cast<unsigned char>(c) >= ' ') {
      escaped += c;
    }
  }
  return escaped;
}

}  // namespace

Svg::Svg(double width, double height) {
  const std::string size = Number(width) + " " + Number(height);
  text = "<svg xmlns=\"http://www.w3.org/2000/svg\"" + Attribute("width", Number(width) + "mm") +
         Attribute("height", Number(height) + "mm") + Attribute("viewBox", "0 0 " + size) +
         Attribute("font-family", "Helvetica, Arial, sans-serif") + Attribute("stroke-linejoin", "miter") + ">\n";
  Rectangle({0, 0}, {width, height}, {"none", 0, "white"});
}

void Svg::Area(const Region& region, const Pen& pen) {
  std::string path;
  for (const Polygon& polygon : region) {
    for (size_t i = 0; i < polygon.size(); ++i) path += (i ? " L" : " M") + Pair(polygon[i]);
    path += " Z";
  }
  if (path.empty()) return;
  text += "<path" + Attribute("d", path.substr(1)) + Attribute("fill-rule", "evenodd") + PenAttributes(pen) + "/>\n";
}

void Svg::Line(Vec2 from, Vec2 to, const Pen& pen) {
  text += "<path" + Attribute("d", "M" + Pair(from) + " L" + Pair(to)) + PenAttributes(pen) + "/>\n";
}

void Svg::Arc(Vec2 from, Vec2 to, double radius, bool clockwise, const Pen& pen) {
  const std::string shape = "M" + Pair(from) + " A" + Pair({radius, radius}) + " 0 0 " + (clockwise ? "1 " : "0 ");
  text += "<path" + Attribute("d", shape + Pair(to)) + PenAttributes(pen) + "/>\n";
}

void Svg::Circle(Vec2 middle, double radius, const Pen& pen) {
  text += "<circle" + Attribute("cx", Number(middle.x)) + Attribute("cy", Number(middle.y)) +
          Attribute("r", Number(radius)) + PenAttributes(pen) + "/>\n";
}

void Svg::Rectangle(Vec2 corner, Vec2 size, const Pen& pen) {
  text += "<rect" + Attribute("x", Number(corner.x)) + Attribute("y", Number(corner.y)) +
          Attribute("width", Number(size.x)) + Attribute("height", Number(size.y)) + PenAttributes(pen) + "/>\n";
}

void Svg::Text(Vec2 at, const std::string& words, const TextStyle& style) {
  text += "<text" + Attribute("x", Number(at.x)) + Attribute("y", Number(at.y)) +
          Attribute("font-size", Number(style.size)) + Attribute("text-anchor", style.anchor) +
          Attribute("fill", style.colour);
  if (style.bold) text += Attribute("font-weight", "bold");
  if (style.turn != 0) text += Attribute("transform", "rotate(" + Number(style.turn) + " " + Pair(at) + ")");
  text += ">" + Escaped(words) + "</text>\n";
}

bool Svg::Save(const std::string& path) const {
  std::ofstream file(path, std::ios::binary);
  file << text << "</svg>\n";
  file.close();
  return !file.fail();
}

}  // namespace plan
