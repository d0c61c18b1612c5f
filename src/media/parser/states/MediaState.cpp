#include "media/parser/states/MediaState.h"

#include "media/media/AMFile.h"
#include "media/media/Callout.h"
#include "media/media/TextBox.h"
#include "media/media/VMFile.h"
#include "media/media/VisualMedia.h"
#include "media/parser/NullState.h"
#include "media/parser/states/AttributesState.h"
#include "media/parser/states/EdgeModsState.h"
#include "media/parser/states/EffectsState.h"
#include "media/parser/states/LinkedMediaState.h"
#include "media/parser/states/ParameterChain.h"
#include "media/parser/states/ParametersState.h"
#include "media/parser/states/ScreenMetaDataState.h"
#include "media/parser/states/TransformerState.h"
#include "values/LeftParameter.h"

#include <cstring>

namespace KelMediaLib {

namespace {

enum Child {
  ParametersChild = 1 << 0,
  AttributesChild = 1 << 1,
  TransformerChild = 1 << 2,
  LinkedMediaChild = 1 << 3,
  ScreenMetaDataChild = 1 << 4,
  EdgeModsChild = 1 << 5,
  EffectsChild = 1 << 6,
};

struct KindRules {
  int children;
  const char* label;
  const char* parametersLabel;
};

const KindRules& rulesOf(MediaState::Kind kind) {
  static const KindRules rules[] = {
      {ParametersChild | AttributesChild | TransformerChild | LinkedMediaChild |
           ScreenMetaDataChild | EdgeModsChild | EffectsChild,
       "VMFile State", "VMFile State Parameters"},
      {ParametersChild | AttributesChild | LinkedMediaChild | EdgeModsChild, "AMFile State",
       "AMFile State Parameters"},
      {ParametersChild | AttributesChild | TransformerChild | LinkedMediaChild | EdgeModsChild |
           EffectsChild,
       "IMFile State", "IMFile State Parameters"},
      {ParametersChild | AttributesChild | TransformerChild | LinkedMediaChild | EdgeModsChild,
       "Callout", "Callout State Parameters"},
      {ParametersChild | AttributesChild | TransformerChild | LinkedMediaChild | EdgeModsChild |
           EffectsChild,
       nullptr, "TextBox State Parameters"},
      {ParametersChild | AttributesChild | EdgeModsChild | EffectsChild, "Image Transition",
       "ImageTransition State Parameters"},
  };
  return rules[kind];
}

Child childOf(const char* name) {
  static const std::pair<const char*, Child> names[] = {
      {"Parameters", ParametersChild},         {"Attributes", AttributesChild},
      {"Transformer", TransformerChild},       {"LinkedMedia", LinkedMediaChild},
      {"ScreenMetaData", ScreenMetaDataChild}, {"LeftEdgeMods", EdgeModsChild},
      {"RightEdgeMods", EdgeModsChild},        {"Effects", EffectsChild},
  };
  for (const auto& entry : names) {
    if (std::strcmp(entry.first, name) == 0) {
      return entry.second;
    }
  }
  return Child(0);
}

}  // namespace

MediaState::MediaState(Parser* parser, boost::shared_ptr<Project> project,
                       boost::shared_ptr<const Media> media, Kind kind)
    : ParserState(parser), project_(std::move(project)), media_(std::move(media)), kind_(kind) {}

ParserState* MediaState::startElement(const char* name, const char** atts) {
  const KindRules& rules = rulesOf(kind_);
  const Child child = childOf(name);
  if ((rules.children & child) == 0) {
    // A text box has always let unknown children pass.
    if (!rules.label) {
      return new NullState(parser());
    }
    throwUnexpectedName(name, rules.label);
  }
  switch (child) {
    case ParametersChild:
      return startParameters();
    case AttributesChild:
      return startAttributes();
    case TransformerChild: {
      const auto visual = boost::dynamic_pointer_cast<const VisualMedia>(media_);
      return new TransformerState(parser::ParameterContext{parser(), project_, media_},
                                  visual->transformer());
    }
    case LinkedMediaChild:
      return new LinkedMediaState(parser(), project_, media_);
    case ScreenMetaDataChild:
      return new ScreenMetaDataState(parser(), project_,
                                     boost::dynamic_pointer_cast<const VMFile>(media_));
    case EdgeModsChild:
      return EdgeModsState::create(
          atts, project_, media_, parser(),
          std::strcmp(name, "LeftEdgeMods") == 0 ? EdgeModsState::Left : EdgeModsState::Right);
    case EffectsChild:
      return new EffectsState(parser(), project_, media_);
  }
  throwUnexpectedName(name, rules.label ? rules.label : "TextBox State");
}

void MediaState::endElement(const char*) {
  parser()->symbolTable().forgetParameters();
}

ParserState* MediaState::startParameters() {
  parser::ParameterChain chain(parser::ParameterContext{parser(), project_, media_});
  if (kind_ == AMFileKind) {
    const auto audio = boost::dynamic_pointer_cast<const AudioMedia>(media_);
    chain.interpolating<double>("volume", audio->volume());
  } else {
    const auto visual = boost::dynamic_pointer_cast<const VisualMedia>(media_);
    if (kind_ == TextBoxKind) {
      chain.plain<LeftParameter<std::string>>(
          "text", boost::dynamic_pointer_cast<const TextBox>(media_)->text());
    }
    chain.vector("sourceCrop", visual->sourceCropParam())
        .vector("geometryCrop", visual->geometryCropParam())
        .interpolating<double>("opacity", visual->opacity());
    if (kind_ == CalloutKind) {
      chain.plain<LeftParameter<std::string>>(
          "text", boost::dynamic_pointer_cast<const Callout>(media_)->textParam());
    }
  }
  return new ParametersState(parser(), chain.end(rulesOf(kind_).parametersLabel));
}

ParserState* MediaState::startAttributes() {
  AttributesState::Setters setters;
  if (kind_ == AMFileKind) {
    const auto audio = boost::dynamic_pointer_cast<const AudioMedia>(media_);
    setters.emplace_back("sampleRate",
                         AttributesState::setAttribute(audio->sampleRate(), project_));
    setters.emplace_back("bitDepth", AttributesState::setAttribute(audio->bitDepth(), project_));
    setters.emplace_back("gain", AttributesState::setAttribute(audio->gain(), project_));
  }
  setters.emplace_back("ident", AttributesState::setAttribute(media_->ident(), project_));
  return new AttributesState(parser(), std::move(setters));
}

}  // namespace KelMediaLib
