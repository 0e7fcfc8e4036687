// Names of C++ for names of EXPRESS.
#ifndef STEPRT_EXPRESS_CPP_NAMES_H
#define STEPRT_EXPRESS_CPP_NAMES_H

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace express::cpp {

// The name of a class or an enumeration: as it is spelled if it has a capital, else in capitals for the underscores.
// IfcWall stays, cartesian_point becomes CartesianPoint.
std::string ClassName(std::string_view spelled);

// The same for a select. An underscore follows where a member of its base class has the name.
std::string SelectName(std::string_view spelled);

// "IFCWALL": names as files have them.
std::string UpperCase(std::string_view name);
std::string LowerCase(std::string_view name);

// Whether a name, or names joined by "::", can be a namespace of the generated code.
bool IsNamespace(std::string_view text);

// The names of one scope. A name that C++ itself, a macro of a usual header or a base class uses is taken as well.
class Scope {
 public:
  enum class Kind {
    kNamespace,
    kMembers,
    kEnumeration,
    kElements
  };  // kElements: of XML, case-insensitive; none is reserved
  explicit Scope(Kind kind, const Scope* around = nullptr) : kind_(kind), around_(around) {}

  // The name, with an underscore after it if it is taken here or in the scope around this one (a member that is called
  // like a class would hide it), or with an underscore and a number if that is taken, too. The result is then taken.
  std::string Take(const std::string& name);

 private:
  bool IsTaken(std::string_view name) const;

  Kind kind_;
  const Scope* around_;
  std::set<std::string, std::less<>> taken_;
  std::map<std::string, int> counts_;  // of names that were taken with a number
};

}  // namespace express::cpp

#endif
