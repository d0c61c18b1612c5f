#pragma once

#include "core/KelObject.h"

#include <map>
#include <string>
#include <vector>

namespace KelMediaLib {

class Parser;

/// The reader's handler of one open XML element. The parser keeps one state
/// per open element on its stack; a state makes the state of each child
/// element and may do work when its element ends (or when it is destroyed).
class ParserState : public KelObject {
 public:
  /// Attribute names to values, as `genMap` fills it.
  using AttributeMap = std::map<std::string, std::string>;

  explicit ParserState(Parser* parser);
  ~ParserState() override;

  /// Returns the state of the child element `name`, newly allocated and
  /// owned by the caller; never null. `atts` is Expat's array: name, value,
  /// name, value, ..., null.
  virtual ParserState* startElement(const char* name, const char** atts) = 0;
  /// Called when this state's element ends; does nothing by default.
  virtual void endElement(const char* name);

  /// The parser this state belongs to; not owned.
  Parser* parser() const { return parser_; }

 protected:
  /// Checks the attributes of an element and fills `map` with them.
  /// `required` and `optional` are names separated by white space. An
  /// attribute in neither list, or a required one absent, is a
  /// `ParserException` that names `element` as the caller gives it.
  static void genMap(const std::string& element, const std::string& required,
                     const std::string& optional, const char** atts, AttributeMap& map);
  /// The white-space separated words of `list`.
  static std::vector<std::string> parseAttrs(const std::string& list);
  /// Throws `ParserException` `Unexpected name "<name>" in <state>`.
  [[noreturn]] static void throwUnexpectedName(const std::string& name, const std::string& state);

 private:
  Parser* parser_;
};

}  // namespace KelMediaLib
