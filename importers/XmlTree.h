#pragma once
// A thin frame over expat and the element tree built with it.
//
// XmlParser owns the expat parser and forwards every expat callback to a
// virtual handler. All memory that expat takes comes out of a budget that is
// fixed when the parser is made (expat's memory-handling suite), and expat's
// own amplification guard against entity expansion is switched on, so that a
// hostile file (an endless attribute, deep nesting, nested entities) ends with
// expat's own error text instead of exhausting the process.

#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

struct XML_ParserStruct;

namespace XML {

// An element: its name as written (with any prefix), its text, attributes
// and child elements in document order, and the line of its start tag.
class XmlTree {
 public:
  XmlTree(std::string name, unsigned long line);
  // Frees the subtree without recursing, so that any depth is safe.
  ~XmlTree();
  XmlTree(const XmlTree&) = delete;
  XmlTree& operator=(const XmlTree&) = delete;

  const std::string& name() const { return name_; }
  // The name without its namespace prefix ("gpx:trk" -> "trk").
  std::string localName() const;
  // True when the local name equals `name`, without regard to case. Inline:
  // the length of a literal is then known and most names fail on it.
  bool is(const char* name) const {
    const size_t length = std::strlen(name);
    if (name_.size() - localStart_ != length) return false;
    const char* local = name_.data() + localStart_;
    return std::memcmp(local, name, length) == 0 || sameLetters(local, name, length);
  }
  // ASCII comparison of `length` characters without regard to case.
  static bool sameLetters(const char* a, const char* b, size_t length);
  const std::string& value() const { return value_; }
  // The text without leading and trailing white space.
  std::string trimmedValue() const;
  unsigned long line() const { return line_; }
  const std::vector<std::pair<std::string, std::string>>& attributes() const { return attributes_; }
  // The value of an attribute by local name (case ignored), or null.
  const std::string* attribute(const char* name) const;
  const std::vector<std::unique_ptr<XmlTree>>& children() const { return children_; }
  // The first child of that local name (case ignored), or null.
  const XmlTree* child(const char* name) const;

  void appendValue(const char* text, size_t length) { value_.append(text, length); }
  void clearValue() { value_.clear(); }
  void addAttribute(std::string name, std::string value) { attributes_.emplace_back(std::move(name), std::move(value)); }
  XmlTree* addChild(std::unique_ptr<XmlTree> child);
  // Takes out the last child (the one whose end tag was just read).
  std::unique_ptr<XmlTree> releaseLastChild();
  // Makes the node a new element of that name and attributes (expat's
  // name-value list), keeping the memory that its texts and lists hold;
  // its children are moved to `spare` while it holds fewer than `keep`.
  void reuse(const char* name, const char** attributes, unsigned long line,
             std::vector<std::unique_ptr<XmlTree>>& spare, size_t keep);

 private:
  std::string name_;
  size_t localStart_;  // where the name's local part begins
  std::string value_;
  unsigned long line_;
  std::vector<std::pair<std::string, std::string>> attributes_;
  std::vector<std::unique_ptr<XmlTree>> children_;
};

class XmlParser {
 public:
  // Expat's memory for one parser is held under `memoryBudget` bytes.
  explicit XmlParser(size_t memoryBudget = kDefaultMemoryBudget);
  virtual ~XmlParser();
  XmlParser(const XmlParser&) = delete;
  XmlParser& operator=(const XmlParser&) = delete;

  static constexpr size_t kDefaultMemoryBudget = 64u << 20;

  // Feeds one block; `last` marks the end of the input. False on an error,
  // after which errorText() and errorLine() tell what and where.
  bool parse(const char* data, size_t size, bool last);
  // The same without a copy: read up to `size` bytes into buffer(size),
  // then hand over how many came with parseBuffer. A buffer that is not
  // handed over is simply left. Null when expat has no memory for it.
  char* buffer(size_t size);
  bool parseBuffer(size_t size, bool last);
  std::string errorText() const;
  unsigned long errorLine() const;
  unsigned long currentLine() const;
  // False when the parser could not be made (no memory).
  bool valid() const { return parser_ != nullptr; }

 protected:
  virtual void startElementHandler_(const char* name, const char** attributes);
  virtual void endElementHandler_(const char* name);
  virtual void characterDataHandler_(const char* text, int length);
  virtual void processingInstructionHandler_(const char* target, const char* data);
  virtual void commentHandler_(const char* text);
  virtual void startCDataSectionHandler_();
  virtual void endCDataSectionHandler_();
  virtual void defaultHandler_(const char* text, int length);
  virtual void unparsedEntityDeclHandler_(const char* entity, const char* base, const char* systemId,
                                          const char* publicId, const char* notation);
  virtual void notationDeclHandler_(const char* notation, const char* base, const char* systemId,
                                    const char* publicId);
  virtual void startNamespaceDeclHandler_(const char* prefix, const char* uri);
  virtual void endNamespaceDeclHandler_(const char* prefix);
  virtual int notStandaloneHandler_();
  virtual int externalEntityRefHandler_(const char* context, const char* base, const char* systemId,
                                        const char* publicId);
  virtual int unknownEncodingHandler_(const char* name, void* info);

  // Stops the parse from inside a handler with expat's "out of memory"
  // error; for handlers that keep data of their own under the budget.
  void stopOutOfMemory_();
  // Charges (positive) or returns (negative) bytes against the budget;
  // false once the budget is spent.
  bool charge_(long long bytes);
  // Ends the parse from inside a handler; parse() then answers false.
  void stop_();

 private:
  friend struct XmlParserAccess;
  struct Budget;
  static void installHandlers_(XML_ParserStruct* parser);

  std::unique_ptr<Budget> budget_;
  XML_ParserStruct* parser_ = nullptr;
  bool outOfMemory_ = false;
};

// Builds the element tree. Only the element, text and encoding handlers do
// anything; external entities are refused and a document that is not
// standalone is accepted. The tree's own memory counts against the budget.
class XmlTreeParser : public XmlParser {
 public:
  explicit XmlTreeParser(size_t memoryBudget = kDefaultMemoryBudget) : XmlParser(memoryBudget) {}

  // The root element, or null before the first start tag.
  XmlTree* root() const { return root_.get(); }
  std::unique_ptr<XmlTree> releaseRoot() { return std::move(root_); }

 protected:
  // The elements whose end tag is still to come, root first.
  const std::vector<XmlTree*>& openElements_() const { return open_; }
  // Called when an element is complete, with its depth (the root is 0).
  // Answering true drops it from the tree: a reader that uses elements as
  // they end keeps its memory small on long files.
  virtual bool elementEnded_(XmlTree& element, size_t depth);
  // Called at the root's start tag.
  virtual void rootStarted_(XmlTree& root);

  void startElementHandler_(const char* name, const char** attributes) override;
  void endElementHandler_(const char* name) override;
  void characterDataHandler_(const char* text, int length) override;
  int unknownEncodingHandler_(const char* name, void* info) override;

 private:
  static constexpr size_t kSpareNodes = 64;

  std::unique_ptr<XmlTree> root_;
  std::vector<XmlTree*> open_;  // root first
  std::vector<std::unique_ptr<XmlTree>> spare_;  // dropped nodes, made over for new elements
};

}  // namespace XML
