#include "express/cpp/names.h"

#include <algorithm>
#include <array>

namespace express::cpp {
namespace {

// All tables are sorted.
template <std::size_t N>
bool Has(const std::array<std::string_view, N>& sorted, std::string_view name) {
  return std::binary_search(sorted.begin(), sorted.end(), name);
}

template <std::size_t N>
constexpr std::array<std::string_view, N> Sorted(std::array<std::string_view, N> names) {
  std::sort(names.begin(), names.end());
  return names;
}

// C++17 and the words of later editions.
constexpr auto kKeywords = Sorted(std::to_array<std::string_view>(
    {"alignas",     "alignof",  "and",        "and_eq",    "asm",       "auto",         "bitand",
     "bitor",       "bool",     "break",      "case",      "catch",     "char",         "char16_t",
     "char32_t",    "char8_t",  "class",      "co_await",  "co_return", "co_yield",     "compl",
     "concept",     "const",    "const_cast", "consteval", "constexpr", "constinit",    "continue",
     "decltype",    "default",  "delete",     "do",        "double",    "dynamic_cast", "else",
     "enum",        "explicit", "export",     "extern",    "false",     "float",        "for",
     "friend",      "goto",     "if",         "inline",    "int",       "long",         "mutable",
     "namespace",   "new",      "noexcept",   "not",       "not_eq",    "nullptr",      "operator",
     "or",          "or_eq",    "private",    "protected", "public",    "register",     "reinterpret_cast",
     "requires",    "return",   "short",      "signed",    "sizeof",    "static",       "static_assert",
     "static_cast", "struct",   "switch",     "template",  "this",      "thread_local", "throw",
     "true",        "try",      "typedef",    "typeid",    "typename",  "union",        "unsigned",
     "using",       "virtual",  "void",       "volatile",  "wchar_t",   "while",        "xor",
     "xor_eq"}));

// Macros of the usual headers and systems.
constexpr auto kMacros = Sorted(std::to_array<std::string_view>(
    {"BIG_ENDIAN",  "BUFSIZ",       "BYTE_ORDER", "CONST",        "DELETE",       "DIFFERENCE",
     "DOMAIN",      "EOF",          "ERROR",      "EXIT_FAILURE", "EXIT_SUCCESS", "FALSE",
     "FAR",         "FILENAME_MAX", "FOPEN_MAX",  "HUGE",         "HUGE_VAL",     "I",
     "IGNORE",      "IN",           "INFINITE",   "INFINITY",     "INT_MAX",      "INT_MIN",
     "LC_ALL",      "LC_COLLATE",   "LC_CTYPE",   "LC_MESSAGES",  "LC_MONETARY",  "LC_NAME",
     "LC_NUMERIC",  "LC_PAPER",     "LC_TIME",    "MAX",          "MB_CUR_MAX",   "MIN",
     "NAN",         "NEAR",         "NO_ERROR",   "NULL",         "OPTIONAL",     "OUT",
     "OVERFLOW",    "PI",           "PLOSS",      "RAND_MAX",     "SEEK_CUR",     "SEEK_END",
     "SEEK_SET",    "SING",         "SIZE_MAX",   "STRICT",       "TLOSS",        "TMP_MAX",
     "TRANSPARENT", "TRUE",         "UNDERFLOW",  "VOID",         "WCHAR_MAX",    "WCHAR_MIN",
     "WEOF",        "WEXITED",      "WNOHANG",    "WSTOPPED",     "alloca",       "assert",
     "complex",     "errno",        "far",        "huge",         "i386",         "imaginary",
     "interface",   "linux",        "major",      "makedev",      "max",          "min",
     "minor",       "near",         "offsetof",   "signals",      "slots",        "small",
     "stderr",      "stdin",        "stdout",     "unix",         "va_arg",       "va_copy",
     "va_end",      "va_start"}));

// Those of error numbers.
constexpr auto kErrorMacros = Sorted(std::to_array<std::string_view>(
    {"E2BIG",        "EACCES",       "EADDRINUSE",   "EAFNOSUPPORT", "EAGAIN",      "EALREADY",     "EBADF",
     "EBADMSG",      "EBUSY",        "ECANCELED",    "ECHILD",       "ECOMM",       "ECONNABORTED", "ECONNREFUSED",
     "ECONNRESET",   "EDEADLK",      "EDESTADDRREQ", "EDOM",         "EEXIST",      "EFAULT",       "EFBIG",
     "EHOSTDOWN",    "EHOSTUNREACH", "EIDRM",        "EILSEQ",       "EINPROGRESS", "EINTR",        "EINVAL",
     "EIO",          "EISCONN",      "EISDIR",       "ELOOP",        "EMFILE",      "EMLINK",       "EMSGSIZE",
     "ENAMETOOLONG", "ENETDOWN",     "ENETRESET",    "ENETUNREACH",  "ENFILE",      "ENOBUFS",      "ENODATA",
     "ENODEV",       "ENOENT",       "ENOEXEC",      "ENOLCK",       "ENOLINK",     "ENOMEM",       "ENOMSG",
     "ENONET",       "ENOPROTOOPT",  "ENOSPC",       "ENOSR",        "ENOSTR",      "ENOSYS",       "ENOTBLK",
     "ENOTCONN",     "ENOTDIR",      "ENOTEMPTY",    "ENOTSOCK",     "ENOTSUP",     "ENOTTY",       "ENXIO",
     "EOPNOTSUPP",   "EOVERFLOW",    "EOWNERDEAD",   "EPERM",        "EPIPE",       "EPROTO",       "EPROTOTYPE",
     "ERANGE",       "EREMOTE",      "EROFS",        "ESPIPE",       "ESRCH",       "ESTALE",       "ETIME",
     "ETIMEDOUT",    "ETXTBSY",      "EUSERS",       "EWOULDBLOCK",  "EXDEV",       "EXFULL"}));

// Functions, types and files of the usual headers. No namespace can have the name of such a function or type, and a
// folder of headers with such a file hides the header of the system.
constexpr auto kGlobalNames = Sorted(std::to_array<std::string_view>(
    {"Attach",  "CurrentModel", "STEPmodel", "STEPmodule", "abort",    "abs",     "accept", "access",   "acos",
     "alarm",   "alloca",       "asin",      "atan",       "atexit",   "atof",    "atoi",   "bind",     "calloc",
     "ceil",    "clock",        "close",     "complex",    "connect",  "cos",     "ctype",  "daemon",   "daylight",
     "div",     "div_t",        "drem",      "dup",        "endian",   "environ", "erf",    "errno",    "exit",
     "exp",     "expat",        "fabs",      "features",   "fenv",     "floor",   "fork",   "free",     "gamma",
     "getenv",  "index",        "iso646",    "j0",         "j1",       "jn",      "kill",   "labs",     "limits",
     "link",    "listen",       "locale",    "log",        "logb",     "lseek",   "malloc", "math",     "memory",
     "mktime",  "modf",         "nan",       "nice",       "open",     "pause",   "perror", "pipe",     "pow",
     "printf",  "pthread",      "putc",      "puts",       "qsort",    "raise",   "rand",   "random",   "read",
     "realloc", "recv",         "remove",    "rename",     "rewind",   "rindex",  "rint",   "round",    "scalb",
     "scanf",   "sched",        "search",    "select",     "send",     "setenv",  "setjmp", "shutdown", "signal",
     "signbit", "significand",  "sin",       "sleep",      "socket",   "sqrt",    "stat",   "stdarg",   "stddef",
     "stdint",  "stdio",        "stdlib",    "string",     "strings",  "sync",    "system", "tan",      "threads",
     "time",    "timezone",     "tm",        "trunc",      "truncate", "uchar",   "ungetc", "unistd",   "unlink",
     "values",  "wait",         "wchar",     "wctype",     "write",    "y0",      "y1",     "yn"}));

// What the generated namespace holds beside the schema's classes, and what its code calls the library.
constexpr auto kNamespaceNames = Sorted(std::to_array<std::string_view>(
    {"APPobject0", "Attach", "Descriptor", "Model", "NamesOf", "STEPmodule", "std", "steprt"}));

// The members of the class of selects.
constexpr auto kSelectMembers = Sorted(std::to_array<std::string_view>(
    {"Add",       "Chars",     "Derive",        "Equals",     "First",   "Get",       "Integer", "Is",      "IsAllowed",
     "IsDerived", "IsOmitted", "IsPresent",     "Iterator",   "Kind",    "Object",    "Omit",    "Print",   "Read",
     "Real",      "SetBinary", "SetEnumerator", "SetInteger", "SetList", "SetObject", "SetReal", "SetText", "SetTyped",
     "SetUtf8",   "Utf8",      "Value",         "Write",      "begin",   "end"}));

// The members of the base classes of entities, and the parameter of Describe. A class of such a name would not be found
// in the others.
constexpr auto kMembers = Sorted(std::to_array<std::string_view>({"AbstractEntity",
                                                                  "AbstractSelf",
                                                                  "Changed",
                                                                  "Describe",
                                                                  "DescribeInherited",
                                                                  "Entity",
                                                                  "EntityName",
                                                                  "Id",
                                                                  "Includes",
                                                                  "IsKindOf",
                                                                  "Model",
                                                                  "NextHead",
                                                                  "Record",
                                                                  "STEPheader",
                                                                  "Super",
                                                                  "Type",
                                                                  "d",
                                                                  "id",
                                                                  "kFurtherAttributes",
                                                                  "kHasFurtherSubtypes",
                                                                  "kKeyword",
                                                                  "kLastType",
                                                                  "kType",
                                                                  "model",
                                                                  "next",
                                                                  "number",
                                                                  "pNextHead",
                                                                  "std",
                                                                  "steprt",
                                                                  "type"}));

constexpr bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }
constexpr bool IsSmall(char c) { return c >= 'a' && c <= 'z'; }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr char Upper(char c) { return IsSmall(c) ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr char Lower(char c) { return IsCapital(c) ? static_cast<char>(c - 'A' + 'a') : c; }

// Whether C++ or a header has another use for a name in any scope.
bool IsWord(std::string_view name) { return Has(kKeywords, name) || Has(kMacros, name) || Has(kErrorMacros, name); }

bool IsIdentifier(std::string_view text) {
  if (text.empty() || IsDigit(text.front()) || IsWord(text)) return false;
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return IsCapital(c) || IsSmall(c) || IsDigit(c) || c == '_'; });
}

}  // namespace

std::string ClassName(std::string_view spelled) {
  if (std::any_of(spelled.begin(), spelled.end(), IsCapital)) return std::string(spelled);
  std::string name;
  bool starts = true;
  for (const char c : spelled) {
    if (c != '_') name += starts ? Upper(c) : c;
    starts = c == '_';
  }
  return name;
}

std::string SelectName(std::string_view spelled) {
  std::string name = ClassName(spelled);
  if (Has(kSelectMembers, name)) name += '_';
  return name;
}

std::string UpperCase(std::string_view name) {
  std::string upper(name);
  std::transform(upper.begin(), upper.end(), upper.begin(), Upper);
  return upper;
}

std::string LowerCase(std::string_view name) {
  std::string lower(name);
  std::transform(lower.begin(), lower.end(), lower.begin(), Lower);
  return lower;
}

bool IsNamespace(std::string_view text) {
  if (Has(kGlobalNames, text.substr(0, text.find("::")))) return false;
  for (;;) {
    const std::size_t colons = text.find("::");
    const std::string_view name = text.substr(0, colons);
    if (!IsIdentifier(name) || name == "std" || name == "steprt") return false;
    if (colons == std::string_view::npos) return true;
    text.remove_prefix(colons + 2);
  }
}

std::string Scope::Take(const std::string& name) {
  std::string free = name;
  if (IsTaken(free)) free += '_';
  // Many names may meet, so the search goes on where the last one ended.
  for (int* count = nullptr; IsTaken(free); free = name + '_' + std::to_string(*count)) {
    if (count == nullptr) count = &counts_.try_emplace(name, 1).first->second;
    ++*count;
  }
  taken_.insert(kind_ == Kind::kElements ? LowerCase(free) : free);
  return free;
}

bool Scope::IsTaken(std::string_view name) const {
  if (kind_ == Kind::kElements) return taken_.count(LowerCase(name)) > 0;
  if (taken_.count(name) > 0) return true;
  if (IsWord(name)) return true;
  if (kind_ == Kind::kNamespace && Has(kNamespaceNames, name)) return true;
  if (kind_ != Kind::kEnumeration && Has(kMembers, name)) return true;
  return around_ != nullptr && around_->IsTaken(name);
}

}  // namespace express::cpp
