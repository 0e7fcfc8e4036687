// What is written reads back as the same population, and is then written as the same bytes.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "host/plain_host.h"
#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

std::string Records(const std::string& path) {
  const std::string bytes = BytesOf(path);
  return bytes.substr(bytes.find("DATA;"));
}

// Records of SAMPLE, WALL, DOOR and PERSON, referring to one another in all directions.
std::string RandomData(unsigned seed, int count) {
  std::mt19937 random(seed);
  const auto number = [&](unsigned below) { return static_cast<int>(random() % below); };
  const auto real = [&] {
    const PlainHost plain;
    char text[32];
    std::snprintf(text, sizeof text, "%lg", (number(2000001) - 1000000) / std::pow(10.0, number(12)));
    return std::string(text);
  };
  const auto reference = [&] {
    return number(8) ? "#" + std::to_string(4 * number(static_cast<unsigned>(count / 4)) + 1) : "$";
  };
  // A reference of a record to itself is one to an unknown object.
  const auto another = [&](int self) { return (self + 1 + number(static_cast<unsigned>(count - 1))) % count + 1; };
  const auto list = [&](auto item) {
    std::string text = "(";
    for (int i = number(5); i > 0; --i) text += item() + std::string(i > 1 ? "," : "");
    return text + ")";
  };
  const auto text = [&] {
    std::string quoted = "'";
    for (int i = number(40); i > 0; --i) quoted += number(9) ? std::string(1, "aZ09 ;(#\\\"\xe9"[number(11)]) : "''";
    return quoted + "'";
  };
  const auto colour = [&] { return std::string(kColours[number(3)]); };
  std::string data;
  for (int i = 0; i < count; ++i) {
    data += "#" + std::to_string(i + 1) + " = ";
    if (i % 4 == 0) {
      const std::string values[] = {"$", reference(), std::to_string(number(1000) - 500), text()};
      data += "SAMPLE(" + text() + "," + std::to_string(number(99) - 50) + "," + real() +
              (number(2) ? ",.T.,.U.," : ",.F.,.T.,") + colour() + "," + values[number(4)] + ",$," +
              list([&] { return "#" + std::to_string(another(i)); }) + "," + list(real) + "," + list(colour) + "," +
              list(text) + ");\n";
    } else {
      data += i % 4 == 1 ? "DOOR($);\n"
              : i % 4 == 2
                  ? "PERSON(" + std::to_string(i) + ");\n"
                  : "WALL(" + text() + "," + real() + ",$," + list([] { return "$"; }) + "," + list(real) + ",.F.);\n";
    }
  }
  return data;
}

TEST(RoundTrip, APopulationAndItsBytesComeBack) {
  for (unsigned seed = 1; seed <= 5; ++seed) {
    const std::string data = RandomData(seed, 2000);
    ProjModel first;
    const Outcome read = ReadBytes(first, InFrame(data));
    ASSERT_EQ(read.reports, Texts{}) << seed;
    ASSERT_EQ(read.population.size(), 2000u);
    std::string once = TempPath("once" + std::to_string(seed) + ".stp");
    std::string twice = TempPath("twice" + std::to_string(seed) + ".stp");
    ASSERT_EQ(first.Write(once.data(), ""), 2000);
    ProjModel second;
    ASSERT_EQ(second.Read(true, once.data()), 0);
    ASSERT_EQ(Population(second), read.population) << seed;
    ASSERT_EQ(second.Write(twice.data(), ""), 2000);
    ASSERT_EQ(Records(twice), Records(once)) << seed;
  }
}

TEST(RoundTrip, AnEditedModelComesBackAsItWasLeft) {
  ProjModel model;
  ReadBytes(model, InFrame("#1=WALL('old',1.,#2,(#3,#4),(1),.F.);#2=PERSON(1);#3=DOOR(#1);#4=DOOR(#1);"));
  auto* wall = static_cast<Entity*>(model.FindFirst(kWall));
  STEPheader* first = wall->values[3].list->head->value.object;
  EXPECT_TRUE(wall->values[3].list->Delete(first));
  delete first;
  auto* door = new Entity(kDoor, &model);
  door->values[0].object = wall;
  wall->values[3].list->Prepend(door);
  wall->values[0].text = "new";
  wall->Changed();
  model.Insert(model.FindFirst(kPerson));
  std::string path = TempPath("edited.stp");
  EXPECT_EQ(model.Write(path.data(), ""), 4);
  EXPECT_EQ(Records(path),
            "DATA;\n#1 = WALL('new',1,#2,(#3,#4),(1),.F.);\n#4 = DOOR(#1);\n#3 = DOOR(#1);\n#2 = PERSON(1);\n"
            "ENDSEC;\n\nEND-ISO-10303-21;\n");
  EXPECT_EQ(ReadBytes(BytesOf(path)).population, Population(model));
}

}  // namespace
