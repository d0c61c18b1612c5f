#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace KelMediaLib {

class Parametric;
class Project;

namespace parser {

/// What the states of a parameter need: the parser, the project on which
/// they execute their commands, and the owner of the parameter, which gives
/// the time axis of its key frames.
struct ParameterContext {
  Parser* parser;
  boost::shared_ptr<Project> project;
  boost::shared_ptr<const Parametric> parametric;
};

/// One link of the chain that a "Parameters" block asks, by the "name" of
/// each parameter element, for the state that reads it. A link that doesn't
/// know the name passes it on to its child, which it owns.
class ParseParameterHandler {
 public:
  ParseParameterHandler();
  virtual ~ParseParameterHandler();
  ParseParameterHandler(const ParseParameterHandler&) = delete;
  ParseParameterHandler& operator=(const ParseParameterHandler&) = delete;

  /// The state for the parameter element with these attributes ("id",
  /// "name"); newly allocated, owned by the caller.
  virtual ParserState* startParameter(ParserState::AttributeMap& map) = 0;

  ParseParameterHandler* child() const { return child_.get(); }
  void setChild(std::unique_ptr<ParseParameterHandler> child) { child_ = std::move(child); }

 protected:
  /// Hands the element to the child; a chain without an end throws
  /// `KelMediaLibException` "parameter handler hit a dead end".
  ParserState* passOn(ParserState::AttributeMap& map);

 private:
  std::unique_ptr<ParseParameterHandler> child_;
};

}  // namespace parser
}  // namespace KelMediaLib
