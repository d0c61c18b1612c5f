#pragma once

#include "media/parser/states/ParseParameterHandler.h"

#include <string>

namespace KelMediaLib {
namespace parser {

/// The end of an owner's chain: a parameter name the owner doesn't have is
/// a `ParserException` `Unexpected parameter "<name>" in <owner>`.
class ParameterErrorHandler : public ParseParameterHandler {
 public:
  explicit ParameterErrorHandler(std::string owner);
  ParserState* startParameter(ParserState::AttributeMap& map) override;

 private:
  std::string owner_;
};

}  // namespace parser
}  // namespace KelMediaLib
