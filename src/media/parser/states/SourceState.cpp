#include "media/parser/states/SourceState.h"

#include "core/ParserException.h"
#include "media/commands/LoadSourceCmd.h"
#include "media/parser/AttributeCast.h"
#include "media/parser/NullState.h"
#include "media/parser/Parser.h"
#include "media/parser/SymbolTable.h"
#include "media/project/Project.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"

#include <boost/date_time/gregorian/gregorian.hpp>
#include <boost/date_time/posix_time/posix_time.hpp>
#include <boost/date_time/time_parsing.hpp>
#include <boost/filesystem.hpp>
#include <boost/lexical_cast/bad_lexical_cast.hpp>

#include <cstring>
#include <stdexcept>

namespace KelMediaLib {

namespace {

// "YYYYMMDDThhmmss", UTC. Boost reports a date that doesn't exist, or a text
// too short for its fields, with exceptions of its own; the file's fault is
// a ParserException like any other.
boost::posix_time::ptime parseStamp(const std::string& stamp) {
  const std::string::size_type t = stamp.find('T');
  const std::string date = t == std::string::npos ? stamp : stamp.substr(0, t);
  const std::string time = t == std::string::npos ? stamp : stamp.substr(t + 1);
  try {
    return boost::posix_time::ptime(
        boost::date_time::parse_undelimited_date<boost::gregorian::date>(date),
        boost::date_time::parse_undelimited_time_duration<boost::posix_time::time_duration>(time));
  } catch (const std::out_of_range&) {
  } catch (const boost::bad_lexical_cast&) {
  }
  throw ParserException("Source lastMod \"" + stamp + "\" isn't a time YYYYMMDDThhmmss", 0, 0);
}

}  // namespace

SourceState::SourceState(Parser* parser, boost::shared_ptr<Project> project, const std::string& src,
                         const std::string& ident, const std::string& rect,
                         const std::string& lastMod)
    : ParserState(parser),
      project_(std::move(project)),
      storedStats_(MediaFileStats::create()),
      path_(constructPath(src, *parser)),
      ident_(ident),
      lastMod_(lastMod) {
  storedStats_->setFilename(path_);
  storedStats_->setRect(attributeCast<Rect<int>>(rect));
}

std::string SourceState::constructPath(const std::string& src, const Parser& parser) {
  const boost::filesystem::path joined = boost::filesystem::path(parser.pathPrefix()) / src;
  boost::system::error_code error;
  return boost::filesystem::exists(joined, error) ? joined.string() : src;
}

ParserState* SourceState::startElement(const char* name, const char** atts) {
  if (std::strcmp(name, "SourceTrack") != 0) {
    throwUnexpectedName(name, "Source");
  }
  AttributeMap map;
  genMap("SourceTrack", "range type editRate trackRect sampleRate bitDepth numChannels", "", atts,
         map);
  MediaFileStats::TrackStats track;
  track.range = attributeCast<Range<long long>>(map["range"]);
  track.editRate = attributeCast<EditRate>(map["editRate"]);
  track.type = attributeCast<MediaFileStats::TrackType>(map["type"]);
  track.trackRect = attributeCast<Rect<int>>(map["trackRect"]);
  track.sampleRate = attributeCast<EditRate>(map["sampleRate"]);
  track.bitDepth = attributeCast<int>(map["bitDepth"]);
  track.numChannels = attributeCast<int>(map["numChannels"]);
  storedStats_->addTrackStats(track);
  return new NullState(parser());
}

void SourceState::endElement(const char* name) {
  if (std::strcmp(name, "Source") != 0) {
    throwUnexpectedName(name, "Source");
  }
  boost::system::error_code error;
  if (boost::filesystem::exists(path_, error)) {
    loadOnlineSource(path_);
    return;
  }
  const std::string replacement = parser()->handleMissingFile(path_);
  if (!replacement.empty()) {
    loadOnlineSource(replacement);
  }
}

void SourceState::loadOnlineSource(const std::string& path) {
  const boost::posix_time::ptime stored = parseStamp(lastMod_);
  const boost::posix_time::ptime current =
      boost::posix_time::from_time_t(boost::filesystem::last_write_time(path));
  if (current > stored) {
    const boost::shared_ptr<MediaFileStats> now = MediaFileStats::create(path);
    if (!parser()->handleChangedFile(path, storedStats_.get(), now.get())) {
      return;
    }
  }
  const boost::shared_ptr<LoadSourceCmd> load = LoadSourceCmd::create(path);
  project_->execute(load);
  parser()->symbolTable().addSymbol(attributeCast<unsigned int>(ident_), load->source());
}

}  // namespace KelMediaLib
