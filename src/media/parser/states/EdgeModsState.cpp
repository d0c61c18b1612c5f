#include "media/parser/states/EdgeModsState.h"

#include "media/commands/AddLeftEdgeModCmd.h"
#include "media/commands/AddRightEdgeModCmd.h"
#include "media/commands/MoveLeftEdgeModCmd.h"
#include "media/commands/MoveRightEdgeModCmd.h"
#include "media/edges/EdgeModification.h"
#include "media/edges/FadeInFunc.h"
#include "media/edges/FadeOutFunc.h"
#include "media/edges/MixerXSlideInFunc.h"
#include "media/edges/MixerXSlideOutFunc.h"
#include "media/edges/MixerYSlideInFunc.h"
#include "media/edges/MixerYSlideOutFunc.h"
#include "media/edges/RotateFunc.h"
#include "media/media/Media.h"
#include "media/parser/AttributeCast.h"
#include "media/parser/NullState.h"
#include "media/parser/Parser.h"
#include "media/parser/SymbolTableImpl.h"
#include "media/project/Project.h"
#include "values/Parameter.h"

#include <cstring>

namespace KelMediaLib {

namespace {

const char* label(EdgeModsState::Side side) {
  return side == EdgeModsState::Left ? "left edge mods" : "right edge mods";
}

// An "EdgeMod": each function element adds one edge modification of the
// parameter to the edge.
class EdgeModFuncsState : public ParserState {
 public:
  EdgeModFuncsState(Parser* parser, boost::shared_ptr<Project> project,
                    boost::shared_ptr<const Media> media,
                    boost::shared_ptr<const Parameter<double>> parameter, EdgeModsState::Side side)
      : ParserState(parser),
        project_(std::move(project)),
        media_(std::move(media)),
        parameter_(std::move(parameter)),
        side_(side) {}

  ParserState* startElement(const char* name, const char** atts) override {
    if (std::strcmp(name, "FadeInFunc") == 0) {
      addEdgeMod(FadeInFunc());
    } else if (std::strcmp(name, "FadeOutFunc") == 0) {
      addEdgeMod(FadeOutFunc());
    } else if (std::strcmp(name, "MixerXSlideIn") == 0) {
      addEdgeMod(MixerXSlideInFunc());
    } else if (std::strcmp(name, "MixerXSlideOut") == 0) {
      addEdgeMod(MixerXSlideOutFunc());
    } else if (std::strcmp(name, "MixerYSlideIn") == 0) {
      AttributeMap map;
      genMap("slide y in func state", "id angle", "", atts, map);
      addEdgeMod(MixerYSlideInFunc(attributeCast<double>(map["angle"])));
    } else if (std::strcmp(name, "MixerYSlideOut") == 0) {
      addEdgeMod(MixerYSlideOutFunc());
    } else if (std::strcmp(name, "Rotate") == 0) {
      AttributeMap map;
      genMap("rotate func state", "id numRotations", "", atts, map);
      addEdgeMod(RotateFunc(attributeCast<int>(map["numRotations"])));
    } else {
      throwUnexpectedName(name, "edge mod funcs");
    }
    return new NullState(parser());
  }

 private:
  void addEdgeMod(const EdgeModFunc& function) {
    const EdgeModification modification(parameter_, function);
    if (side_ == EdgeModsState::Left) {
      project_->execute(AddLeftEdgeModCmd::create(media_, modification));
    } else {
      project_->execute(AddRightEdgeModCmd::create(media_, modification));
    }
  }

  boost::shared_ptr<Project> project_;
  boost::shared_ptr<const Media> media_;
  boost::shared_ptr<const Parameter<double>> parameter_;
  EdgeModsState::Side side_;
};

}  // namespace

EdgeModsState::EdgeModsState(Parser* parser, boost::shared_ptr<Project> project,
                             boost::shared_ptr<const Media> media, Side side)
    : ParserState(parser), project_(std::move(project)), media_(std::move(media)), side_(side) {}

ParserState* EdgeModsState::create(const char** atts, boost::shared_ptr<Project> project,
                                   boost::shared_ptr<const Media> media, Parser* parser,
                                   Side side) {
  AttributeMap map;
  genMap(label(side), "length", "", atts, map);
  const auto length = attributeCast<long long>(map["length"]);
  if (side == Left) {
    project->execute(MoveLeftEdgeModCmd::create(media, length));
  } else {
    project->execute(MoveRightEdgeModCmd::create(media, length));
  }
  return new EdgeModsState(parser, std::move(project), std::move(media), side);
}

ParserState* EdgeModsState::startElement(const char* name, const char** atts) {
  if (std::strcmp(name, "EdgeMod") != 0) {
    throwUnexpectedName(name, label(side_));
  }
  AttributeMap map;
  genMap("edge mod", "parameter", "", atts, map);
  const boost::shared_ptr<const Parameter<double>> parameter =
      parser()->symbolTable().symbolForIdent<Parameter<double>>(
          attributeCast<unsigned int>(map["parameter"]));
  return new EdgeModFuncsState(parser(), project_, media_, parameter, side_);
}

}  // namespace KelMediaLib
