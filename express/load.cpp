#include "load.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include "lexer.h"
#include "names.h"
#include "parser.h"
#include "resolver.h"

namespace express {

namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

void Parse(const Source& source, Model& model, Diagnostics& diagnostics, const Limits& limits) {
  if (source.Text().size() > limits.textBytes) {
    return diagnostics.Error({&source, 0}, Code::kLongText,
                             "this text is longer than " + std::to_string(limits.textBytes) + " bytes and is not read");
  }
  const std::vector<Token> tokens = Tokenise(source, diagnostics);
  Parser(source, tokens, diagnostics, limits).Parse(model.schemas);
}

// Resolving goes on after syntax errors, so that both kinds are reported at once, but not after too many.
void Resolve(Model& model, Diagnostics& diagnostics, const Limits& limits) {
  Context context{model, diagnostics, Budget(limits.steps, diagnostics)};
  ResolveNames(context);
  ResolveReferences(context);
  if (diagnostics.Full()) return;
  ResolveTypes(context);
  ResolveAttributes(context, ResolveInheritance(context));
}

}  // namespace

std::unique_ptr<Source> ReadSource(const std::string& path, Diagnostics& diagnostics) {
  const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
  std::string text;
  if (file != nullptr) {
    char block[1 << 16];
    for (std::size_t n; (n = std::fread(block, 1, sizeof block, file.get())) > 0;) text.append(block, n);
    if (std::ferror(file.get()) == 0) return std::make_unique<Source>(path, std::move(text));
  }
  diagnostics.Error({}, Code::kUnreadableFile, "cannot read '" + path + "': " + std::strerror(errno));
  return nullptr;
}

std::unique_ptr<Model> Load(std::vector<std::unique_ptr<Source>> sources, Diagnostics& diagnostics,
                            const Limits& limits) {
  auto model = std::make_unique<Model>();
  model->sources = std::move(sources);
  for (const auto& source : model->sources) Parse(*source, *model, diagnostics, limits);
  Resolve(*model, diagnostics, limits);
  return model;
}

}  // namespace express
