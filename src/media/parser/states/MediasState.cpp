#include "media/parser/states/MediasState.h"

#include "core/ParserException.h"
#include "core/Attribute.h"
#include "core/ValueException.h"
#include "media/commands/AddMediaCmd.h"
#include "media/media/AMFile.h"
#include "media/media/Callout.h"
#include "media/media/IMFile.h"
#include "media/media/ImageTransition.h"
#include "media/media/TextBox.h"
#include "media/media/VMFile.h"
#include "media/parser/AttributeCast.h"
#include "media/parser/Parser.h"
#include "media/parser/SymbolTableImpl.h"
#include "media/parser/states/MediaState.h"
#include "media/project/Project.h"
#include "media/sources/Source.h"
#include "media/timeline/Track.h"
#include "values/Point.h"
#include "values/Rect.h"
#include "values/SetAttributeValueCmd.h"

#include <cstring>
#include <limits>
#include <string>
#include <sstream>

namespace KelMediaLib {

namespace {

// Edits that are only allowed while a media is on no track; a media just
// made has none, and the check guards against a state that got it wrong.
void assertParentless(const boost::shared_ptr<Media>& media) {
  if (media->parent()) {
    throw ValueException<boost::shared_ptr<Media>>(
        "trying to edit parented media like a parentless media", media);
  }
}

// The sum of start trims of the file, replayed as an end trim and a start
// trim: the length stays, and the media's sum of start trims is the file's.
void replayTrims(const boost::shared_ptr<Media>& media, long long trimStartSum) {
  // The one sum whose opposite has no value; no media could be trimmed by it.
  if (trimStartSum == std::numeric_limits<long long>::min()) {
    throw ParserException("trimStartSum " + std::to_string(trimStartSum) + " out of range", 0, 0);
  }
  assertParentless(media);
  media->trimEnd(-trimStartSum);
  assertParentless(media);
  media->trimStart(trimStartSum);
}

}  // namespace

MediasState::MediasState(Parser* parser, boost::shared_ptr<Project> project,
                         boost::shared_ptr<const Track> track, bool audio)
    : ParserState(parser), project_(std::move(project)), track_(std::move(track)), audio_(audio) {}

ParserState* MediasState::startElement(const char* name, const char** atts) {
  if (audio_) {
    if (std::strcmp(name, "AMFile") == 0) {
      return startFileMedia(name, atts);
    }
    throwUnexpectedName(name, "Audio Medias");
  }
  if (std::strcmp(name, "VMFile") == 0) {
    return startFileMedia(name, atts);
  }
  if (std::strcmp(name, "ImageTransition") == 0) {
    return startImageTransition(atts);
  }
  if (std::strcmp(name, "Callout") == 0) {
    return startCallout(atts);
  }
  if (std::strcmp(name, "IMFile") == 0) {
    return startIMFile(atts);
  }
  if (std::strcmp(name, "TextBox") == 0) {
    return startTextBox(atts);
  }
  throwUnexpectedName(name, "Visual Medias");
}

ParserState* MediasState::startFileMedia(const char* name, const char** atts) {
  const bool audio = std::strcmp(name, "AMFile") == 0;
  const char* label = audio ? "AMFile State" : "VMFile State";
  AttributeMap map;
  genMap(label,
         audio ? "id start duration scalar mediaStart mediaDuration trackNumber src channelNumber"
               : "id start duration scalar mediaStart mediaDuration trackNumber src",
         "", atts, map);
  const auto ident = static_cast<unsigned int>(attributeCast<int>(map["id"]));
  const Range<long long> mediaRange(attributeCast<long long>(map["mediaStart"]),
                                    attributeCast<long long>(map["mediaDuration"]));
  const boost::shared_ptr<const Source> source =
      parser()->symbolTable().symbolForIdent<Source>(attributeCast<unsigned int>(map["src"]));
  const auto trackNumber = attributeCast<unsigned int>(map["trackNumber"]);
  const auto scalar = attributeCast<double>(map["scalar"]);
  const auto start = attributeCast<long long>(map["start"]);
  const auto duration = attributeCast<long long>(map["duration"]);
  boost::shared_ptr<Media> media;
  if (audio) {
    std::set<unsigned int> channels;
    std::istringstream channelText(map["channelNumber"]);
    channelText.imbue(std::locale::classic());
    AMFile::readChannels(channelText, channels);
    media = AMFile::create(mediaRange, project_, source, trackNumber, channels);
  } else {
    media = VMFile::create(mediaRange, project_, source, trackNumber);
  }
  parser()->symbolTable().addSymbol(ident, boost::shared_ptr<const Media>(media));
  assertParentless(media);
  media->scale(scalar);
  if (media->range().duration != duration) {
    throw ParserException("unable to scale media to their correct size", 0, 0);
  }
  project_->execute(AddMediaCmd::create(track_, media, start));
  return new MediaState(parser(), project_, media,
                        audio ? MediaState::AMFileKind : MediaState::VMFileKind);
}

ParserState* MediasState::startIMFile(const char** atts) {
  AttributeMap map;
  genMap("IMFile State",
         "id start duration scalar mediaStart mediaDuration trackNumber src trimStartSum", "", atts,
         map);
  const auto ident = static_cast<unsigned int>(attributeCast<int>(map["id"]));
  const auto mediaStart = attributeCast<long long>(map["mediaStart"]);
  attributeCast<long long>(map["mediaDuration"]);
  const boost::shared_ptr<const Source> source =
      parser()->symbolTable().symbolForIdent<Source>(attributeCast<unsigned int>(map["src"]));
  const auto trackNumber = attributeCast<unsigned int>(map["trackNumber"]);
  attributeCast<double>(map["scalar"]);
  const auto start = attributeCast<long long>(map["start"]);
  const auto duration = attributeCast<long long>(map["duration"]);
  const auto trimStartSum = attributeCast<long long>(map["trimStartSum"]);
  const boost::shared_ptr<IMFile> media =
      IMFile::create(mediaStart, duration, project_, source, trackNumber);
  replayTrims(media, trimStartSum);
  project_->execute(AddMediaCmd::create(track_, media, start));
  parser()->symbolTable().addSymbol(ident, boost::shared_ptr<const Media>(media));
  return new MediaState(parser(), project_, media, MediaState::IMFileKind);
}

ParserState* MediasState::startTextBox(const char** atts) {
  AttributeMap map;
  genMap("TextBox State", "id start duration width height trimStartSum", "", atts, map);
  const auto ident = static_cast<unsigned int>(attributeCast<int>(map["id"]));
  const auto start = attributeCast<long long>(map["start"]);
  const auto duration = attributeCast<long long>(map["duration"]);
  const auto width = attributeCast<float>(map["width"]);
  const auto height = attributeCast<float>(map["height"]);
  const auto trimStartSum = attributeCast<long long>(map["trimStartSum"]);
  const boost::shared_ptr<TextBox> media =
      TextBox::create(std::string(), duration, width, height, project_);
  replayTrims(media, trimStartSum);
  parser()->symbolTable().addSymbol(ident, boost::shared_ptr<const Media>(media));
  project_->execute(AddMediaCmd::create(track_, media, start));
  return new MediaState(parser(), project_, media, MediaState::TextBoxKind);
}

ParserState* MediasState::startCallout(const char** atts) {
  AttributeMap map;
  genMap("Callout",
         "id start duration scalar mediaStart mediaDuration trackNumber src textRect hotspot "
         "trimStartSum",
         "", atts, map);
  const auto ident = static_cast<unsigned int>(attributeCast<int>(map["id"]));
  const auto mediaStart = attributeCast<long long>(map["mediaStart"]);
  attributeCast<long long>(map["mediaDuration"]);
  const boost::shared_ptr<const Source> source =
      parser()->symbolTable().symbolForIdent<Source>(attributeCast<unsigned int>(map["src"]));
  const auto trackNumber = attributeCast<unsigned int>(map["trackNumber"]);
  attributeCast<double>(map["scalar"]);
  const auto start = attributeCast<long long>(map["start"]);
  const auto duration = attributeCast<long long>(map["duration"]);
  const auto textRect = attributeCast<Rect<float>>(map["textRect"]);
  const auto hotspot = attributeCast<Point>(map["hotspot"]);
  const auto trimStartSum = attributeCast<long long>(map["trimStartSum"]);
  const boost::shared_ptr<Callout> media =
      Callout::create(mediaStart, duration, project_, source, trackNumber);
  // Replayed, as for an image, so that the callout keeps its trims.
  replayTrims(media, trimStartSum);
  // Set on the new media before it is on a track, not as edits of the history.
  SetAttributeValueCmd<Rect<float>>(media->textRectAttr(), textRect).execute(nullptr);
  SetAttributeValueCmd<Point>(media->hotSpotAttr(), hotspot).execute(nullptr);
  // Entered in the table, unlike in older readers, so that actions and links
  // that name a callout load.
  parser()->symbolTable().addSymbol(ident, boost::shared_ptr<const Media>(media));
  project_->execute(AddMediaCmd::create(track_, media, start));
  return new MediaState(parser(), project_, media, MediaState::CalloutKind);
}

ParserState* MediasState::startImageTransition(const char** atts) {
  AttributeMap map;
  genMap("Image Transition", "id start duration", "", atts, map);
  const auto ident = static_cast<unsigned int>(attributeCast<int>(map["id"]));
  const auto start = attributeCast<long long>(map["start"]);
  const auto duration = attributeCast<long long>(map["duration"]);
  const boost::shared_ptr<ImageTransition> media = ImageTransition::create(duration, project_);
  parser()->symbolTable().addSymbol(ident, boost::shared_ptr<const Media>(media));
  project_->execute(AddMediaCmd::create(track_, media, start));
  return new MediaState(parser(), project_, media, MediaState::ImageTransitionKind);
}

}  // namespace KelMediaLib
