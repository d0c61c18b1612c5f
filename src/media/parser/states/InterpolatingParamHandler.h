#pragma once

#include "media/parser/Parser.h"
#include "media/parser/SymbolTable.h"
#include "media/parser/states/InterpolatingParamState.h"

#include <string>
#include <type_traits>

namespace KelMediaLib {
namespace parser {

/// Reads the parameter called `name` as an `InterpolatingParam<T>`. A
/// parameter of doubles is entered in the symbol table under its "id", so
/// that an edge modification can name it.
template <class T>
class InterpolatingParamHandler : public ParseParameterHandler {
 public:
  InterpolatingParamHandler(std::string name,
                            boost::shared_ptr<const InterpolatingParam<T>> parameter,
                            const ParameterContext& context)
      : name_(std::move(name)), parameter_(std::move(parameter)), context_(context) {}

  ParserState* startParameter(ParserState::AttributeMap& map) override {
    if (map["name"] != name_) {
      return passOn(map);
    }
    const auto ident = attributeCast<unsigned int>(map["id"]);
    if constexpr (std::is_same<T, double>::value) {
      context_.parser->symbolTable().addParameterSymbol(ident, parameter_);
    }
    return new InterpolatingParamState<T>(context_, parameter_);
  }

 private:
  std::string name_;
  boost::shared_ptr<const InterpolatingParam<T>> parameter_;
  ParameterContext context_;
};

}  // namespace parser
}  // namespace KelMediaLib
