#include "media/parser/states/TimelineState.h"

#include "media/commands/NewAudioMixerCmd.h"
#include "media/commands/NewAudioTrackCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/media/Transformer.h"
#include "media/parser/AttributeCast.h"
#include "media/parser/Parser.h"
#include "media/parser/SymbolTable.h"
#include "media/parser/states/AttributesState.h"
#include "media/parser/states/MediasState.h"
#include "media/parser/states/ParameterChain.h"
#include "media/parser/states/ParametersState.h"
#include "media/parser/states/TransformerState.h"
#include "media/project/Project.h"
#include "media/timeline/AudioMixer.h"
#include "media/timeline/AudioTrack.h"
#include "media/timeline/VisualMixer.h"
#include "media/timeline/VisualTrack.h"

#include <cstring>

namespace KelMediaLib {

namespace {

// A "VisualTrack" or "AudioTrack": its ident, its parameters (an audio
// track's position; a visual track has none), a visual track's transformer,
// and its media.
class TrackState : public ParserState {
 public:
  TrackState(Parser* parser, boost::shared_ptr<Project> project,
             boost::shared_ptr<const Track> track, bool audio)
      : ParserState(parser), project_(std::move(project)), track_(std::move(track)),
        audio_(audio) {}

  ParserState* startElement(const char* name, const char**) override {
    if (std::strcmp(name, "Attributes") == 0) {
      return new AttributesState(
          parser(), {{"ident", AttributesState::setAttribute(track_->ident(), project_)}});
    }
    if (std::strcmp(name, "Medias") == 0) {
      return new MediasState(parser(), project_, track_, audio_);
    }
    const auto parametric = boost::dynamic_pointer_cast<const Parametric>(track_);
    const parser::ParameterContext context{parser(), project_, parametric};
    if (std::strcmp(name, "Parameters") == 0) {
      parser::ParameterChain chain(context);
      if (audio_) {
        chain.interpolating<AudioPosition>(
            "position", boost::static_pointer_cast<const AudioTrack>(track_)->positionParam());
      }
      return new ParametersState(parser(), chain.end("Parameters"));
    }
    if (!audio_ && std::strcmp(name, "Transformer") == 0) {
      return new TransformerState(
          context, boost::static_pointer_cast<const VisualTrack>(track_)->transformer());
    }
    throwUnexpectedName(name, audio_ ? "AudioTrack" : "VisualTrack");
  }

 private:
  boost::shared_ptr<Project> project_;
  boost::shared_ptr<const Track> track_;
  bool audio_;
};

// A mixer's "Tracks": tracks of its own kind, each made behind the others.
class TracksState : public ParserState {
 public:
  TracksState(Parser* parser, boost::shared_ptr<Project> project, bool audio)
      : ParserState(parser), project_(std::move(project)), audio_(audio) {}

  ParserState* startElement(const char* name, const char** atts) override {
    const char* trackName = audio_ ? "AudioTrack" : "VisualTrack";
    if (std::strcmp(name, trackName) != 0) {
      throwUnexpectedName(name, "Tracks");
    }
    AttributeMap map;
    genMap(trackName, "id", "", atts, map);
    const auto ident = static_cast<unsigned int>(attributeCast<int>(map["id"]));
    boost::shared_ptr<const Track> track;
    if (audio_) {
      const auto command = NewAudioTrackCmd::create(-1);
      project_->execute(command);
      track = command->audioTrack();
    } else {
      const auto command = NewVisualTrackCmd::create(-1);
      project_->execute(command);
      track = command->visualTrack();
    }
    parser()->symbolTable().addSymbol(ident, track);
    return new TrackState(parser(), project_, track, audio_);
  }

 private:
  boost::shared_ptr<Project> project_;
  bool audio_;
};

// A "VisualMixer" or "AudioMixer": its size or sound format, the visual
// mixer's camera parameters and transformer, and its tracks.
class MixerState : public ParserState {
 public:
  MixerState(Parser* parser, boost::shared_ptr<Project> project,
             boost::shared_ptr<const VisualMixer> visual, boost::shared_ptr<const AudioMixer> audio)
      : ParserState(parser), project_(std::move(project)), visual_(std::move(visual)),
        audio_(std::move(audio)) {}

  ParserState* startElement(const char* name, const char**) override {
    if (std::strcmp(name, "Attributes") == 0) {
      return startAttributes();
    }
    if (std::strcmp(name, "Tracks") == 0) {
      return new TracksState(parser(), project_, audio_ != nullptr);
    }
    if (visual_) {
      const parser::ParameterContext context{parser(), project_, visual_};
      if (std::strcmp(name, "Parameters") == 0) {
        return new ParametersState(parser(),
                                   parser::ParameterChain(context)
                                       .vector("eyePosition", visual_->eyePositionParam())
                                       .vector("eyeLookAtPosition", visual_->eyeLookAtPositionParam())
                                       .vector("eyeUpVector", visual_->eyeUpVectorParam())
                                       .interpolating<float>("fov", visual_->fovParam())
                                       .interpolating<float>("nearClipDistance",
                                                             visual_->nearClipDistanceParam())
                                       .interpolating<float>("farClipDistance",
                                                             visual_->farClipDistanceParam())
                                       .end("VisualMixer State Parameters"));
      }
      if (std::strcmp(name, "Transformer") == 0) {
        return new TransformerState(context, visual_->transformer());
      }
    }
    throwUnexpectedName(name, visual_ ? "VisualMixer" : "AudioMixer");
  }

 private:
  ParserState* startAttributes() {
    if (visual_) {
      return new AttributesState(
          parser(), {{"width", AttributesState::setAttribute(visual_->attributeWidth(), project_)},
                     {"height", AttributesState::setAttribute(visual_->attributeHeight(), project_)}});
    }
    return new AttributesState(
        parser(),
        {{"sampleRate", AttributesState::setAttribute(audio_->attributeSampleRate(), project_)},
         {"bitDepth", AttributesState::setAttribute(audio_->attributeBitDepth(), project_)},
         {"numChannels", AttributesState::setAttribute(audio_->attributeNumChannels(), project_)}});
  }

  boost::shared_ptr<Project> project_;
  boost::shared_ptr<const VisualMixer> visual_;
  boost::shared_ptr<const AudioMixer> audio_;
};

}  // namespace

TimelineState::TimelineState(Parser* parser, boost::shared_ptr<Project> project)
    : ParserState(parser), project_(std::move(project)) {}

ParserState* TimelineState::startElement(const char* name, const char** atts) {
  const bool visual = std::strcmp(name, "VisualMixer") == 0;
  if (!visual && std::strcmp(name, "AudioMixer") != 0) {
    throwUnexpectedName(name, "Timeline");
  }
  // Both mixers share one attribute list, and its word.
  AttributeMap map;
  genMap("VisualMixer", "id", "", atts, map);
  if (visual) {
    const auto command = NewVisualMixerCmd::create(0.0f, 0.0f);
    project_->execute(command);
    return new MixerState(parser(), project_, command->mixer(), nullptr);
  }
  const auto command = NewAudioMixerCmd::create(0, 0, 0);
  project_->execute(command);
  return new MixerState(parser(), project_, nullptr, command->mixer());
}

}  // namespace KelMediaLib
