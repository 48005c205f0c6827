#include "importers/XmlTree.h"

#include <cstdlib>
#include <cstring>

// The amplification guard of expat is declared only for DTD-enabled builds,
// which Debian's library is.
#ifndef XML_DTD
#define XML_DTD
#endif
#include <expat.h>

#include "core/StringUtils.h"

namespace XML {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

}  // namespace

// ---------------------------------------------------------------- XmlTree

XmlTree::XmlTree(std::string name, unsigned long line) : name_(std::move(name)), line_(line) {
  const size_t colon = name_.rfind(':');
  localStart_ = colon == std::string::npos ? 0 : colon + 1;
}

XmlTree::~XmlTree() {
  // Move every descendant into one list before it dies, so that a tree of
  // any depth is freed with a flat loop.
  std::vector<std::unique_ptr<XmlTree>> pending;
  pending.swap(children_);
  while (!pending.empty()) {
    std::unique_ptr<XmlTree> node = std::move(pending.back());
    pending.pop_back();
    for (auto& child : node->children_) pending.push_back(std::move(child));
    node->children_.clear();
  }
}

std::string XmlTree::localName() const { return name_.substr(localStart_); }

bool XmlTree::sameLetters(const char* a, const char* b, size_t length) {
  for (size_t i = 0; i < length; ++i) {
    char x = a[i], y = b[i];
    if (x == y) continue;
    if (x >= 'A' && x <= 'Z') x = static_cast<char>(x - 'A' + 'a');
    if (y >= 'A' && y <= 'Z') y = static_cast<char>(y - 'A' + 'a');
    if (x != y) return false;
  }
  return true;
}

std::string XmlTree::trimmedValue() const {
  size_t begin = 0, end = value_.size();
  while (begin < end && isBlank(value_[begin])) ++begin;
  while (end > begin && isBlank(value_[end - 1])) --end;
  return value_.substr(begin, end - begin);
}

const std::string* XmlTree::attribute(const char* name) const {
  const size_t length = std::strlen(name);
  for (const auto& attribute : attributes_) {
    const std::string& full = attribute.first;
    // Most files write the name just as asked ("lat"): no prefix to find.
    if (full.size() == length && std::memcmp(full.data(), name, length) == 0) return &attribute.second;
    const size_t colon = full.rfind(':');
    const size_t start = colon == std::string::npos ? 0 : colon + 1;
    if (full.size() - start == length && sameLetters(full.data() + start, name, length)) return &attribute.second;
  }
  return nullptr;
}

const XmlTree* XmlTree::child(const char* name) const {
  for (const auto& node : children_)
    if (node->is(name)) return node.get();
  return nullptr;
}

std::unique_ptr<XmlTree> XmlTree::releaseLastChild() {
  std::unique_ptr<XmlTree> child = std::move(children_.back());
  children_.pop_back();
  return child;
}

void XmlTree::reuse(const char* name, const char** attributes, unsigned long line,
                    std::vector<std::unique_ptr<XmlTree>>& spare, size_t keep) {
  // A long file repeats its element and attribute names: a node made over
  // for the same name keeps it as it is.
  if (std::strcmp(name_.c_str(), name) != 0) {
    name_.assign(name);
    const size_t colon = name_.rfind(':');
    localStart_ = colon == std::string::npos ? 0 : colon + 1;
  }
  line_ = line;
  value_.clear();
  size_t count = 0;
  for (const char** a = attributes; a && a[0]; a += 2, ++count) {
    if (count < attributes_.size()) {
      if (std::strcmp(attributes_[count].first.c_str(), a[0]) != 0) attributes_[count].first.assign(a[0]);
      attributes_[count].second.assign(a[1]);
    } else {
      attributes_.emplace_back(a[0], a[1]);
    }
  }
  attributes_.resize(count);
  // Last child first, so that the next element to be made over is the one
  // that the same structure wants next (and keeps its name).
  for (auto child = children_.rbegin(); child != children_.rend(); ++child)
    if (spare.size() < keep) spare.push_back(std::move(*child));
  children_.clear();
}

XmlTree* XmlTree::addChild(std::unique_ptr<XmlTree> child) {
  if (children_.empty()) children_.reserve(4);
  children_.push_back(std::move(child));
  return children_.back().get();
}

// ---------------------------------------------------------------- XmlParser

// Every block that expat allocates carries a header with its size and its
// budget, so that realloc and free can settle the account without a global.
struct XmlParser::Budget {
  size_t limit;
  size_t used = 0;
  explicit Budget(size_t bytes) : limit(bytes) {}

  struct Header {
    Budget* budget;
    size_t size;
  };
  static_assert(sizeof(Header) == 16, "keeps malloc's alignment");

  // The budget that malloc charges: set around every call into expat.
  static thread_local Budget* current;

  static void* allocate(size_t size) {
    Budget* budget = current;
    if (budget == nullptr || size > budget->limit - budget->used) return nullptr;
    auto* header = static_cast<Header*>(std::malloc(sizeof(Header) + size));
    if (header == nullptr) return nullptr;
    header->budget = budget;
    header->size = size;
    budget->used += size;
    return header + 1;
  }
  static void* reallocate(void* block, size_t size) {
    if (block == nullptr) return allocate(size);
    Header* header = static_cast<Header*>(block) - 1;
    Budget* budget = header->budget;
    const size_t old = header->size;
    if (size > old && size - old > budget->limit - budget->used) return nullptr;
    auto* grown = static_cast<Header*>(std::realloc(header, sizeof(Header) + size));
    if (grown == nullptr) return nullptr;
    budget->used = budget->used - old + size;
    grown->size = size;
    return grown + 1;
  }
  static void release(void* block) {
    if (block == nullptr) return;
    Header* header = static_cast<Header*>(block) - 1;
    header->budget->used -= header->size;
    std::free(header);
  }

  // Sets `current` for the duration of one call into expat.
  class Scope {
   public:
    explicit Scope(Budget* budget) : saved_(current) { current = budget; }
    ~Scope() { current = saved_; }

   private:
    Budget* saved_;
  };
};

thread_local XmlParser::Budget* XmlParser::Budget::current = nullptr;

namespace {

XmlParser* self(void* data) { return static_cast<XmlParser*>(data); }

}  // namespace

// The static functions that expat calls, each forwarding to its virtual handler.
struct XmlParserAccess {
  static void start(void* d, const XML_Char* n, const XML_Char** a) {
    self(d)->startElementHandler_(n, a);
  }
  static void end(void* d, const XML_Char* n) { self(d)->endElementHandler_(n); }
  static void text(void* d, const XML_Char* s, int len) {
    self(d)->characterDataHandler_(s, len);
  }
  static void pi(void* d, const XML_Char* t, const XML_Char* s) {
    self(d)->processingInstructionHandler_(t, s);
  }
  static void comment(void* d, const XML_Char* s) { self(d)->commentHandler_(s); }
  static void startCData(void* d) { self(d)->startCDataSectionHandler_(); }
  static void endCData(void* d) { self(d)->endCDataSectionHandler_(); }
  static void other(void* d, const XML_Char* s, int len) {
    self(d)->defaultHandler_(s, len);
  }
  static void unparsed(void* d, const XML_Char* e, const XML_Char* b, const XML_Char* s, const XML_Char* p,
                       const XML_Char* n) {
    self(d)->unparsedEntityDeclHandler_(e, b, s, p, n);
  }
  static void notation(void* d, const XML_Char* n, const XML_Char* b, const XML_Char* s, const XML_Char* p) {
    self(d)->notationDeclHandler_(n, b, s, p);
  }
  static void startNs(void* d, const XML_Char* p, const XML_Char* u) {
    self(d)->startNamespaceDeclHandler_(p, u);
  }
  static void endNs(void* d, const XML_Char* p) { self(d)->endNamespaceDeclHandler_(p); }
  static int notStandalone(void* d) { return self(d)->notStandaloneHandler_(); }
  static int external(XML_Parser p, const XML_Char* c, const XML_Char* b, const XML_Char* s, const XML_Char* i) {
    return self(XML_GetUserData(p))->externalEntityRefHandler_(c, b, s, i);
  }
  static int encoding(void* d, const XML_Char* n, XML_Encoding* info) {
    return self(d)->unknownEncodingHandler_(n, info);
  }
};

void XmlParser::installHandlers_(XML_ParserStruct* p) {
  XML_SetElementHandler(p, XmlParserAccess::start, XmlParserAccess::end);
  XML_SetCharacterDataHandler(p, XmlParserAccess::text);
  XML_SetProcessingInstructionHandler(p, XmlParserAccess::pi);
  XML_SetCommentHandler(p, XmlParserAccess::comment);
  XML_SetCdataSectionHandler(p, XmlParserAccess::startCData, XmlParserAccess::endCData);
  // The expanding form: entity references still reach the text handler.
  XML_SetDefaultHandlerExpand(p, XmlParserAccess::other);
  XML_SetUnparsedEntityDeclHandler(p, XmlParserAccess::unparsed);
  XML_SetNotationDeclHandler(p, XmlParserAccess::notation);
  XML_SetNamespaceDeclHandler(p, XmlParserAccess::startNs, XmlParserAccess::endNs);
  XML_SetNotStandaloneHandler(p, XmlParserAccess::notStandalone);
  XML_SetExternalEntityRefHandler(p, XmlParserAccess::external);
  // This handler gets its own data pointer, not the parser's user data.
  XML_SetUnknownEncodingHandler(p, XmlParserAccess::encoding, XML_GetUserData(p));
}

XmlParser::XmlParser(size_t memoryBudget) : budget_(std::make_unique<Budget>(memoryBudget)) {
  static const XML_Memory_Handling_Suite suite = {Budget::allocate, Budget::reallocate, Budget::release};
  Budget::Scope scope(budget_.get());
  parser_ = XML_ParserCreate_MM(nullptr, &suite, nullptr);
  if (parser_ == nullptr) return;
  XML_SetUserData(parser_, this);
  installHandlers_(parser_);
  // Expat's guard against entity expansion ("billion laughs"): its own
  // defaults, stated here so that a different library build can't drop them.
  XML_SetBillionLaughsAttackProtectionMaximumAmplification(parser_, 100.0f);
  XML_SetBillionLaughsAttackProtectionActivationThreshold(parser_, 8u << 20);
}

XmlParser::~XmlParser() {
  if (parser_ == nullptr) return;
  Budget::Scope scope(budget_.get());
  XML_ParserFree(parser_);
}

bool XmlParser::parse(const char* data, size_t size, bool last) {
  if (parser_ == nullptr) return false;
  Budget::Scope scope(budget_.get());
  while (size > 0 || last) {
    // XML_Parse takes an int length: long inputs go in slices.
    const size_t slice = size < (1u << 30) ? size : (1u << 30);
    const bool final = last && slice == size;
    if (XML_Parse(parser_, data, static_cast<int>(slice), final) != XML_STATUS_OK) return false;
    data += slice;
    size -= slice;
    if (final) break;
  }
  return true;
}

char* XmlParser::buffer(size_t size) {
  if (parser_ == nullptr || size > (1u << 30)) return nullptr;
  Budget::Scope scope(budget_.get());
  return static_cast<char*>(XML_GetBuffer(parser_, static_cast<int>(size)));
}

bool XmlParser::parseBuffer(size_t size, bool last) {
  if (parser_ == nullptr) return false;
  Budget::Scope scope(budget_.get());
  return XML_ParseBuffer(parser_, static_cast<int>(size), last) == XML_STATUS_OK;
}

std::string XmlParser::errorText() const {
  if (outOfMemory_) return XML_ErrorString(XML_ERROR_NO_MEMORY);
  if (parser_ == nullptr) return XML_ErrorString(XML_ERROR_NO_MEMORY);
  const char* text = XML_ErrorString(XML_GetErrorCode(parser_));
  return text ? text : "";
}

unsigned long XmlParser::errorLine() const { return currentLine(); }

unsigned long XmlParser::currentLine() const {
  return parser_ ? static_cast<unsigned long>(XML_GetCurrentLineNumber(parser_)) : 0;
}

void XmlParser::stopOutOfMemory_() {
  if (outOfMemory_) return;
  outOfMemory_ = true;
  XML_StopParser(parser_, XML_FALSE);
}

void XmlParser::stop_() { XML_StopParser(parser_, XML_FALSE); }

bool XmlParser::charge_(long long bytes) {
  Budget& budget = *budget_;
  if (bytes < 0) {
    const size_t back = static_cast<size_t>(-bytes);
    budget.used -= back < budget.used ? back : budget.used;
    return true;
  }
  if (static_cast<size_t>(bytes) > budget.limit - budget.used) return false;
  budget.used += static_cast<size_t>(bytes);
  return true;
}

void XmlParser::startElementHandler_(const char*, const char**) {}
void XmlParser::endElementHandler_(const char*) {}
void XmlParser::characterDataHandler_(const char*, int) {}
void XmlParser::processingInstructionHandler_(const char*, const char*) {}
void XmlParser::commentHandler_(const char*) {}
void XmlParser::startCDataSectionHandler_() {}
void XmlParser::endCDataSectionHandler_() {}
void XmlParser::defaultHandler_(const char*, int) {}
void XmlParser::unparsedEntityDeclHandler_(const char*, const char*, const char*, const char*, const char*) {}
void XmlParser::notationDeclHandler_(const char*, const char*, const char*, const char*) {}
void XmlParser::startNamespaceDeclHandler_(const char*, const char*) {}
void XmlParser::endNamespaceDeclHandler_(const char*) {}
int XmlParser::notStandaloneHandler_() { return 1; }
// Refused: a file must not make the reader open other files or URLs.
int XmlParser::externalEntityRefHandler_(const char*, const char*, const char*, const char*) { return 0; }
int XmlParser::unknownEncodingHandler_(const char*, void*) { return XML_STATUS_ERROR; }

// ---------------------------------------------------------------- XmlTreeParser

namespace {

// What a node keeps in memory, roughly: the node, its slot and its texts.
long long nodeCost(const XmlTree& node) {
  long long cost = static_cast<long long>(sizeof(XmlTree) + 2 * sizeof(void*) + node.name().size() +
                                          node.value().size());
  for (const auto& a : node.attributes()) cost += static_cast<long long>(a.first.size() + a.second.size()) + 64;
  return cost;
}

long long subtreeCost(const XmlTree& top) {
  // Most elements that are dropped hold leaves only: no list needed.
  long long cost = nodeCost(top);
  bool leavesOnly = true;
  for (const auto& child : top.children()) {
    if (!child->children().empty()) leavesOnly = false;
    cost += nodeCost(*child);
  }
  if (leavesOnly) return cost;
  cost = 0;
  std::vector<const XmlTree*> pending{&top};
  while (!pending.empty()) {
    const XmlTree* node = pending.back();
    pending.pop_back();
    cost += nodeCost(*node);
    for (const auto& child : node->children()) pending.push_back(child.get());
  }
  return cost;
}

bool allBlank(const std::string& text) {
  for (char c : text)
    if (!isBlank(c)) return false;
  return true;
}

}  // namespace

void XmlTreeParser::startElementHandler_(const char* name, const char** attributes) {
  // Elements that were used up and dropped come back here: a long file of
  // like elements then makes its nodes once.
  std::unique_ptr<XmlTree> node;
  if (spare_.empty()) {
    node = std::make_unique<XmlTree>(name, currentLine());
    for (const char** a = attributes; a && a[0]; a += 2) node->addAttribute(a[0], a[1]);
  } else {
    node = std::move(spare_.back());
    spare_.pop_back();
    node->reuse(name, attributes, currentLine(), spare_, kSpareNodes);
  }
  if (!charge_(nodeCost(*node))) return stopOutOfMemory_();
  XmlTree* added = nullptr;
  if (open_.empty()) {
    if (root_) return;  // expat reports a second root itself
    root_ = std::move(node);
    added = root_.get();
    rootStarted_(*added);
  } else {
    XmlTree* parent = open_.back();
    // White space between elements is layout, not text.
    if (!parent->value().empty() && allBlank(parent->value())) {
      charge_(-static_cast<long long>(parent->value().size()));
      parent->clearValue();
    }
    added = parent->addChild(std::move(node));
  }
  open_.push_back(added);
}

void XmlTreeParser::endElementHandler_(const char*) {
  if (open_.empty()) return;
  XmlTree* element = open_.back();
  open_.pop_back();
  if (!elementEnded_(*element, open_.size()) || open_.empty()) return;
  // Whatever the element kept goes back to the budget with it.
  charge_(-subtreeCost(*element));
  std::unique_ptr<XmlTree> dropped = open_.back()->releaseLastChild();
  if (spare_.size() < kSpareNodes) spare_.push_back(std::move(dropped));
}

void XmlTreeParser::characterDataHandler_(const char* text, int length) {
  if (open_.empty() || length <= 0) return;
  if (!charge_(length)) return stopOutOfMemory_();
  open_.back()->appendValue(text, static_cast<size_t>(length));
}

// Encodings that expat doesn't know are read as Latin-1: each byte is its
// own code point. The common single-byte code pages agree with it on
// everything that a GPS file writes.
int XmlTreeParser::unknownEncodingHandler_(const char*, void* info) {
  auto* encoding = static_cast<XML_Encoding*>(info);
  for (int i = 0; i < 256; ++i) encoding->map[i] = i;
  encoding->data = nullptr;
  encoding->convert = nullptr;
  encoding->release = nullptr;
  return XML_STATUS_OK;
}

bool XmlTreeParser::elementEnded_(XmlTree&, size_t) { return false; }
void XmlTreeParser::rootStarted_(XmlTree&) {}

}  // namespace XML
