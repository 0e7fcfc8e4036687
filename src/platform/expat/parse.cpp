#include "platform/expat/parse.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/expat/code_pages.h"
#include "platform/expat/memory.h"
#include "platform/expat/names.h"
#include "support/text_buffer.h"

namespace steprt {
namespace {

void XMLCALL OnStartElement(void* parse, const XML_Char* name, const XML_Char** attributes) {
  static_cast<ExpatParse*>(parse)->StartElement(name, attributes);
}

void XMLCALL OnEndElement(void* parse, const XML_Char* /*name*/) { static_cast<ExpatParse*>(parse)->EndElement(); }

void XMLCALL OnText(void* parse, const XML_Char* text, int size) {
  static_cast<ExpatParse*>(parse)->Text({text, static_cast<std::size_t>(size)});
}

void XMLCALL OnStartNamespace(void* parse, const XML_Char* /*prefix*/, const XML_Char* address) {
  static_cast<ExpatParse*>(parse)->StartNamespace(address);
}

// An entity that is not in the document has no text.
void XMLCALL OnEntity(void* parse, const XML_Char* name, int isParameter, const XML_Char* text, int size,
                      const XML_Char* /*base*/, const XML_Char* /*systemId*/, const XML_Char* /*publicId*/,
                      const XML_Char* /*notation*/) {
  if (text) static_cast<ExpatParse*>(parse)->DeclareEntity(name, {text, static_cast<std::size_t>(size)}, isParameter);
}

void XMLCALL OnAttribute(void* parse, const XML_Char* element, const XML_Char* /*name*/, const XML_Char* type,
                         const XML_Char* value, int /*isRequired*/) {
  static_cast<ExpatParse*>(parse)->DeclareAttribute(element, type, value != nullptr);
}

void XMLCALL OnSkippedEntity(void* parse, const XML_Char* name, int isParameter) {
  if (!isParameter) static_cast<ExpatParse*>(parse)->SkipEntity(name);
}

void XMLCALL OnEndDocumentType(void* parse) { static_cast<ExpatParse*>(parse)->EndDocumentType(); }

void XMLCALL OnMarkup(void* parse, const XML_Char* text, int size) {
  static_cast<ExpatParse*>(parse)->Markup({text, static_cast<std::size_t>(size)});
}

void XMLCALL OnComment(void* /*parse*/, const XML_Char* /*text*/) {}

void XMLCALL OnInstruction(void* /*parse*/, const XML_Char* /*target*/, const XML_Char* /*text*/) {}

void AddCount(TextBuffer& text, XML_Size count) {
  char digits[24];
  const char* end = std::to_chars(digits, digits + sizeof digits, count).ptr;
  text.Add(std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

// The message is truncated when memory runs out.
const char16_t* PutMessage(Utf16Buffer& buffer, std::string_view message) {
  if (!buffer.Reserve(message.size() + 1)) message = message.substr(0, Utf16Buffer::kOwnUnits - 1);
  return buffer.PutBytes(message);
}

}  // namespace

int ExpatAttributes::Length() {
  int texts = 0;
  while (pairs_[texts]) ++texts;
  return texts / 2;
}

std::u16string_view ExpatAttributes::LocalName(int index, std::size_t limit) {
  return buffer_.PutStart(LocalPart(pairs_[2 * index]), limit);
}

std::u16string_view ExpatAttributes::Value(int index, std::size_t limit) {
  return buffer_.PutStart(pairs_[2 * index + 1], limit);
}

void ExpatParse::Run(ByteSource& source) {
  if (!MakeParser()) return ReportFatal(errors_, XML_ErrorString(XML_ERROR_NO_MEMORY));
  Send([this] { return content_.StartDocument(); });
  if (!stopped_ && !Feed(source)) ReportFault();
  Send([this] { return content_.EndDocument(); });
  parser_.reset();
  if (thrown_) std::rethrow_exception(thrown_);
}

bool ExpatParse::MakeParser() {
  parser_.reset(XML_ParserCreate_MM(nullptr, &expatMemory, &kSeparator));
  if (!parser_) return false;
  limits_.Start(parser_.get());
  XML_SetUserData(parser_.get(), this);
  XML_SetElementHandler(parser_.get(), OnStartElement, OnEndElement);
  XML_SetStartNamespaceDeclHandler(parser_.get(), OnStartNamespace);
  XML_SetCharacterDataHandler(parser_.get(), OnText);
  XML_SetEntityDeclHandler(parser_.get(), OnEntity);
  XML_SetAttlistDeclHandler(parser_.get(), OnAttribute);
  XML_SetParamEntityParsing(parser_.get(), XML_PARAM_ENTITY_PARSING_ALWAYS);
  XML_SetSkippedEntityHandler(parser_.get(), OnSkippedEntity);
  XML_SetEndDoctypeDeclHandler(parser_.get(), OnEndDocumentType);
  XML_SetUnknownEncodingHandler(parser_.get(), DescribeCodePage, nullptr);
  return true;
}

// Returns false if Expat stopped. For each block that ends inside a token, Expat scans that token again from its start,
// so blocks double as long as one token continues.
bool ExpatParse::Feed(ByteSource& source) {
  constexpr int kBlock = 1 << 16;
  constexpr int kLargestBlock = 1 << 28;
  XML_Index tokenStart = -1;
  for (int size = kBlock;;) {
    auto* buffer = static_cast<char*>(XML_GetBuffer(parser_.get(), size));
    if (!buffer) return false;
    const std::size_t filled = source.Fill(buffer, static_cast<std::size_t>(size));
    const int count = static_cast<int>(filled);
    memory_.Raise(filled);
    if (count == 0 && source.HasFailed()) fault_ = "the file can't be read on";
    if (XML_ParseBuffer(parser_.get(), count, count == 0) != XML_STATUS_OK) return false;
    if (count == 0) return !fault_;
    const XML_Index start = XML_GetCurrentByteIndex(parser_.get());
    size = start == tokenStart ? std::min(size * 2, kLargestBlock) : kBlock;
    tokenStart = start;
  }
}

void ExpatParse::ReportFault() {
  if (stopped_ && !fault_) return;
  if (!fault_ && memory_.WasMet()) fault_ = "too much memory for a document of its length";
  stopped_ = true;
  TextBuffer message;
  message.Add(fault_ ? fault_ : XML_ErrorString(XML_GetErrorCode(parser_.get())));
  AddPlace(message);
  ReportFatal(errors_, message.Text());
}

void ExpatParse::AddPlace(TextBuffer& message) const {
  message.Add(" (line ");
  AddCount(message, XML_GetCurrentLineNumber(parser_.get()));
  message.Add(", column ");
  AddCount(message, XML_GetCurrentColumnNumber(parser_.get()) + 1);
  message.Add(')');
}

void ExpatParse::StartElement(const XML_Char* name, const XML_Char** attributes) {
  SendText();
  const std::string_view local = LocalPart(name);
  Refuse(limits_.StartElement(name, local, attributes));
  if (!name_.Reserve(local.size())) return Refuse(XML_ErrorString(XML_ERROR_NO_MEMORY));
  attributes_.Bind(attributes);
  Send([&] { return content_.StartElement(name_.Put(local), attributes_); });
}

void ExpatParse::EndElement() {
  SendText();
  limits_.EndElement();
  Send([this] { return content_.EndElement(); });
}

void ExpatParse::StartNamespace(const XML_Char* address) { Refuse(limits_.BindNamespace(address)); }

void ExpatParse::DeclareEntity(const XML_Char* name, std::string_view text, bool isParameter) {
  Refuse(limits_.DeclareEntity(name, text, isParameter));
}

void ExpatParse::DeclareAttribute(const XML_Char* element, const XML_Char* type, bool hasDefault) {
  Refuse(limits_.DeclareAttribute(element, type, hasDefault));
}

// With a handler of external entities, Expat walks all bound prefixes for each reference. So references to them are
// read from the markup that has no other callback. Comments and instructions have handlers, so that no piece of a long
// one is taken for a reference.
void ExpatParse::EndDocumentType() {
  XML_SetDefaultHandlerExpand(parser_.get(), OnMarkup);
  XML_SetCommentHandler(parser_.get(), OnComment);
  XML_SetProcessingInstructionHandler(parser_.get(), OnInstruction);
}

void ExpatParse::Markup(std::string_view utf8) {
  if (utf8.front() == '&') SkipEntity(utf8.substr(1, utf8.size() - 2));
}

void ExpatParse::SkipEntity(std::string_view name) {
  TextBuffer message;
  message.Add("entity not loaded: ").Add(name);
  AddPlace(message);
  Utf16Buffer buffer;
  Send([&] { return errors_.Error(PutMessage(buffer, message.Text())); });
}

void ExpatParse::Text(std::string_view utf8) {
  while (!utf8.empty()) {
    const std::string_view part = TruncateToBytes(utf8, kTextBlock - used_);
    used_ = static_cast<std::size_t>(Utf8ToUtf16(text_ + used_, part) - text_);
    utf8.remove_prefix(part.size());
    if (!utf8.empty()) SendText();
  }
}

void ExpatParse::SendText() {
  const std::size_t size = std::exchange(used_, 0);
  if (size > 0) Send([=, this] { return content_.Characters({text_, size}); });
}

// No exception of the event leaves this function: it would pass through the frames of Expat.
template <typename Event>
void ExpatParse::Send(Event event) {
  if (stopped_) return;
  try {
    if (event() < 0) Stop();
  } catch (...) {
    thrown_ = std::current_exception();
    Stop();
  }
}

void ExpatParse::Stop() {
  stopped_ = true;
  XML_StopParser(parser_.get(), XML_FALSE);
}

// Null is no fault.
void ExpatParse::Refuse(const char* fault) {
  if (!fault || stopped_) return;
  fault_ = fault;
  Stop();
}

void ReportFatal(SaxErrorHandler& errors, std::string_view message) {
  Utf16Buffer buffer;
  errors.FatalError(PutMessage(buffer, message));
}

}  // namespace steprt
