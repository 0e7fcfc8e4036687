#include "passes.h"

#include <string>

#include "parser.h"

namespace exchange {

void FirstPass::Run() {
  totals_.bytes = input_.Bytes().size();
  Parser(input_.Bytes(), reports_, *this).Run();
  if (!headerDone_) headerReader_.Finish(totals_.bytes);
}

void FirstPass::OnHeader(const Record& record) { headerReader_.Take(record); }

void FirstPass::OnRecord(const Record& record) {
  if (!headerDone_) {
    headerDone_ = true;
    headerReader_.Finish(record.offset);
    OnData();
  }
  ++totals_.records;
  if (record.hasName && !names_.Define(record.name, record.sound ? TypeOf(record) : kUnknownType)) {
    ++totals_.doubled;
    reports_.Add(Code::kDoubledName, record.offset, [&] {
      return "expected another name, #" + std::to_string(record.name) + " is that of an earlier record";
    });
  }
  if (!record.sound) return;
  ++totals_.read;
  totals_.complex += record.complex ? 1U : 0U;
  CountReferences(record);
  if (options_.keywords) CountKeywords(record);
}

void FirstPass::OnOther(const Record& record) {
  if (record.hasName) names_.Define(record.name, kUnknownType);
  CountReferences(record);
}

void FirstPass::CountReferences(const Record& record) {
  for (const Token token : record.tokens) {
    if (!token.Is(TokenKind::kReference)) continue;
    ++totals_.references;
    names_.Refer(InstanceName(record.bytes, token));
  }
}

void FirstPass::CountKeywords(const Record& record) {
  const auto find = [&](Token token) -> KeywordCount& {
    const std::string_view keyword = Spelling(record.bytes, token);
    const auto found = keywords_.find(keyword);
    return found != keywords_.end() ? found->second : keywords_[std::string(keyword)];
  };
  if (!record.complex) {
    ++find(record.tokens.front()).records;
    return;
  }
  for (std::size_t i = 0; i < record.tokens.size(); i = AfterValue(record.tokens, i)) ++find(record.tokens[i]).parts;
}

void FirstPass::OnProgress(std::size_t offset) {
  input_.Release(offset);
  if (options_.progress) options_.progress(offset, totals_.bytes);
}

void SecondPass::Run() {
  muted_.Mute(true);
  Parser(input_.Bytes(), muted_, *this).Run();
}

void SecondPass::OnRecord(const Record& record) {
  if (!record.sound) return;
  if (record.hasName) reports_.Enter(record.name);
  FindDangling(record);
  Look(record);
  reports_.Leave();
}

void SecondPass::FindDangling(const Record& record) {
  if (!dangling_) return;
  for (const Token token : record.tokens) {
    if (!token.Is(TokenKind::kReference)) continue;
    const std::uint64_t name = InstanceName(record.bytes, token);
    if (names_.IsDefined(name)) continue;
    ++totals_.dangling;
    reports_.Add(Code::kDanglingReference, token.Offset(),
                 [&] { return "expected the name of a record, no record is called #" + std::to_string(name); });
  }
}

void SecondPass::OnProgress(std::size_t offset) {
  input_.Release(offset);
  if (options_.progress) options_.progress(offset, input_.Bytes().size());
}

}  // namespace exchange
