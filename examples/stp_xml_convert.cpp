// Converts a clear-text file to an XML document, or a document to clear text. A name that ends in .xml is a document.
//
//   stp_xml_convert FROM TO
//   stp_xml_convert [FOLDER]   creates a file there, converts it to XML and back
#include <cstdio>
#include <fstream>
#include <string>

#include "proj/schema.h"

namespace {

bool IsXml(const std::string& path) { return path.size() > 4 && path.compare(path.size() - 4, 4, ".xml") == 0; }

// Returns 0 for a clean read. Read would take a document too, but would first report that it is not clear text.
int Read(steprt::Model& model, const std::string& path) {
  if (!IsXml(path)) return model.Read(path, true);
  model.Name(path.c_str());
  return model.ReadXml(nullptr);
}

// Returns the number of instances, or -1.
int Write(steprt::Model& model, const std::string& path) {
  return IsXml(path) ? model.WriteXml(path) : model.Write(path);
}

bool Convert(const std::string& from, const std::string& to) {
  steprt::Model model(&proj::schema);
  if (Read(model, from) != 0 || model.IsEmpty()) {  // a library without XML reads no document and returns 0
    std::fprintf(stderr, "%s: could not be read without a report\n", from.c_str());
    return false;
  }
  const int count = Write(model, to);
  std::printf("%s: %d instances\n", to.c_str(), count);
  return count >= 0;
}

bool MakeFile(const std::string& path) {
  steprt::Model model(&proj::schema);
  auto* owner = new proj::Person;
  owner->Name = "Ada <ada@example.org>";
  owner->Age = 36;
  auto* wall = new proj::Wall;
  wall->Name = "North & east";
  wall->Owner = owner;
  auto* door = new proj::Door;
  door->Name = "Front door";
  door->Width = 0.9;
  wall->Doors.Add(door);
  auto* site = new proj::Site;
  site->Name = "Plot 7";
  site->Reference.SetObject(owner);
  return model.Write(path) == 4;
}

// Returns all lines except the one with the file's name and the date.
std::string Records(const std::string& path) {
  std::string records;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    if (line.rfind("FILE_NAME", 0) != 0) records += line + "\n";
  }
  return records;
}

bool ThereAndBack(const std::string& folder) {
  const std::string first = folder + "/first.stp", document = folder + "/first.xml", second = folder + "/second.stp";
  if (!MakeFile(first) || !Convert(first, document) || !Convert(document, second)) return false;
  const bool areEqual = Records(first) == Records(second);
  std::printf("%s %s\n", second.c_str(), areEqual ? "holds the same records" : "holds other records");
  return areEqual;
}

}  // namespace

int main(int count, char** arguments) {
  if (count > 2) return Convert(arguments[1], arguments[2]) ? 0 : 1;
  return ThereAndBack(count > 1 ? arguments[1] : ".") ? 0 : 1;
}
