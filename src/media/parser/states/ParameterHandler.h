#pragma once

#include "media/parser/states/ParameterState.h"

#include <string>

namespace KelMediaLib {
namespace parser {

/// Reads the parameter called `name` as a plain parameter of class `P`.
template <class P>
class ParameterHandler : public ParseParameterHandler {
 public:
  ParameterHandler(std::string name, boost::shared_ptr<const P> parameter,
                   const ParameterContext& context)
      : name_(std::move(name)), parameter_(std::move(parameter)), context_(context) {}

  ParserState* startParameter(ParserState::AttributeMap& map) override {
    if (map["name"] != name_) {
      return passOn(map);
    }
    // The ident must be a number, though nothing points at such a parameter.
    attributeCast<unsigned int>(map["id"]);
    return new ParameterState<P>(context_, parameter_);
  }

 private:
  std::string name_;
  boost::shared_ptr<const P> parameter_;
  ParameterContext context_;
};

}  // namespace parser
}  // namespace KelMediaLib
