#include "media/parser/states/EffectsState.h"

#include "media/commands/AddEffectCmd.h"
#include "media/effects/GenericEffect.h"
#include "media/parser/AttributeCast.h"
#include "media/parser/Parser.h"
#include "media/parser/SymbolTable.h"
#include "media/parser/states/EffectParameterHandler.h"
#include "media/parser/states/ParametersState.h"
#include "media/project/Project.h"

#include <cstring>

namespace KelMediaLib {

namespace {

// A "GenericEffect": its "Parameters", read by the effect's own names.
class GenericEffectState : public ParserState {
 public:
  GenericEffectState(Parser* parser, boost::shared_ptr<Project> project,
                     boost::shared_ptr<GenericEffect> effect)
      : ParserState(parser), project_(std::move(project)), effect_(std::move(effect)) {}

  ParserState* startElement(const char* name, const char**) override {
    if (std::strcmp(name, "Parameters") != 0) {
      throwUnexpectedName(name, "Generic Effect");
    }
    const parser::ParameterContext context{parser(), project_, effect_};
    return new ParametersState(parser(),
                               std::make_unique<parser::EffectParameterHandler>(effect_, context));
  }

 private:
  boost::shared_ptr<Project> project_;
  boost::shared_ptr<GenericEffect> effect_;
};

}  // namespace

EffectsState::EffectsState(Parser* parser, boost::shared_ptr<Project> project,
                           boost::shared_ptr<const Effectable> effectable)
    : ParserState(parser), project_(std::move(project)), effectable_(std::move(effectable)) {}

ParserState* EffectsState::startElement(const char* name, const char** atts) {
  if (std::strcmp(name, "GenericEffect") != 0) {
    throwUnexpectedName(name, "Linked Media");
  }
  AttributeMap map;
  genMap("Generic Effect", "id name", "", atts, map);
  const auto ident = attributeCast<unsigned int>(map["id"]);
  const boost::shared_ptr<GenericEffect> effect = GenericEffect::create(map["name"], project_);
  project_->execute(AddEffectCmd::create(effectable_, effect));
  parser()->symbolTable().addSymbol(ident, boost::shared_ptr<const Effect>(effect));
  return new GenericEffectState(parser(), project_, effect);
}

}  // namespace KelMediaLib
