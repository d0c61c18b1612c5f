#include "clipbin/ZoomJob.h"

#include "actions/Action.h"
#include "actions/ActionBin.h"
#include "clipbin/SourceMediaIndexer.h"
#include "commands/ZoomdriftAddActionsCmd.h"
#include "core/Attribute.h"
#include "core/IOException.h"
#include "core/KelMediaLibException.h"
#include "media/commands/AddMediaCmd.h"
#include "media/commands/LinkCmd.h"
#include "media/commands/LoadSourceCmd.h"
#include "media/commands/NewAudioMixerCmd.h"
#include "media/commands/NewAudioTrackCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/media/AMFile.h"
#include "media/media/VMFile.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/timeline/AudioTrack.h"
#include "media/timeline/VisualTrack.h"
#include "parser/OrvParser.h"
#include "project/OrvProject.h"
#include "zoomdrift/FollowEngine.h"
#include "zoomdrift/ZoomdriftCmdUtil.h"

#include <boost/pointer_cast.hpp>

#include <cmath>
#include <fstream>
#include <iomanip>
#include <locale>
#include <ostream>
#include <sstream>
#include <type_traits>

namespace OrvMediaLib {

using KelMediaLib::EditRate;

namespace {

// The project's file, as the writer writes it.
std::string fileText(const OrvProject& project) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  KelMediaLib::XMLable::Options options(out);
  project.toXML(options, 0, "");
  return out.str();
}

void writeFile(const std::string& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << text;
  out.close();
  if (!out) {
    throw KelMediaLib::IOException("can't write \"" + path + "\"");
  }
}

double toSeconds(long long units, EditRate rate) {
  return static_cast<double>(units) * static_cast<double>(rate.denominator()) /
         static_cast<double>(rate.numerator());
}

long long toUnits(double seconds, EditRate rate) {
  return std::llround(seconds * static_cast<double>(rate.numerator()) /
                      static_cast<double>(rate.denominator()));
}

template <class T>
boost::shared_ptr<const T> mediaOf(const boost::shared_ptr<const KelMediaLib::Source>& source,
                                   int index) {
  typedef
      typename std::conditional<std::is_base_of<KelMediaLib::VisualMedia, T>::value,
                                const KelMediaLib::VisualMedia, const KelMediaLib::AudioMedia>::type
          Kind;
  return boost::dynamic_pointer_cast<const T>(
      SourceMediaIndexer::mediaOnTrackIndex<Kind>(source, index));
}

std::string formatSeconds(double seconds) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out << std::fixed << std::setprecision(2) << seconds;
  return out.str();
}

}  // namespace

ZoomJob::Result ZoomJob::run(const std::string& bundle, const std::string& projectFile,
                             const Settings& settings) {
  using namespace KelMediaLib;
  Result result;
  result.bundle = bundle;

  // The recording's rate and size, from its stats, before there is a project.
  const boost::shared_ptr<MediaFileStats> stats = MediaFileStats::create(bundle);
  const MediaFileStats::TrackStats* screenTrack = nullptr;
  const MediaFileStats::TrackStats* soundTrack = nullptr;
  for (const MediaFileStats::TrackStats& track : stats->trackStats()) {
    if (track.type == MediaFileStats::Video && !screenTrack) screenTrack = &track;
    if (track.type == MediaFileStats::Audio && !soundTrack) soundTrack = &track;
  }
  if (!screenTrack || screenTrack->editRate == EditRate(0)) {
    throw KelMediaLibException("\"" + bundle + "\" holds no screen video with a rate");
  }
  result.editRate = screenTrack->editRate;
  result.width = stats->rect().width;
  result.height = stats->rect().height;

  const boost::shared_ptr<OrvProject> project =
      OrvProject::create(static_cast<unsigned>(result.editRate.numerator()),
                         static_cast<unsigned>(result.editRate.denominator()));
  project->execute(NewVisualMixerCmd::create(static_cast<float>(result.width),
                                             static_cast<float>(result.height)));
  const auto load = LoadSourceCmd::create(bundle);
  project->execute(load);
  const boost::shared_ptr<const Source> source = load->source();

  const auto screen = mediaOf<VMFile>(source, 0);
  if (!screen) {
    throw KelMediaLibException("\"" + bundle + "\" holds no screen video");
  }
  const auto visualTrack = NewVisualTrackCmd::create(-1);
  project->execute(visualTrack);
  const boost::shared_ptr<const Media> video = screen->cloneMedia();
  project->execute(AddMediaCmd::create(visualTrack->visualTrack(), video, 0));
  result.screenFile = screen->fileName();
  result.seconds = toSeconds(video->range().duration, result.editRate);

  if (const auto sound = mediaOf<AMFile>(source, 0)) {
    project->execute(NewAudioMixerCmd::create(soundTrack->sampleRate.numerator(),
                                              static_cast<unsigned>(soundTrack->bitDepth),
                                              static_cast<unsigned>(soundTrack->numChannels)));
    const auto audioTrack = NewAudioTrackCmd::create(-1);
    project->execute(audioTrack);
    const boost::shared_ptr<const Media> audio = sound->cloneMedia();
    project->execute(AddMediaCmd::create(audioTrack->audioTrack(), audio, 0));
    project->execute(LinkCmd::create(video, audio));
    result.soundFile = sound->fileName();
  }

  const auto onTimeline = boost::dynamic_pointer_cast<const VMFile>(video);
  ZoomdriftNS::FollowEngine::Settings engineSettings;
  engineSettings.zoom = settings.zoom;
  const auto engine = ZoomdriftNS::FollowEngine::create(engineSettings);
  const long long fade = toUnits(settings.fadeSeconds, result.editRate);

  const std::string before = fileText(*project);
  project->orvExecute(ZoomdriftAddActionsCmd::create(
      onTimeline, engine, fade, project->zdActionBin(), result.width, result.height));
  const std::string after = fileText(*project);
  project->undo();
  result.undoExact = fileText(*project) == before;
  project->redo();
  result.redoExact = fileText(*project) == after;

  // The rectangles: the engine answers the same for the same metadata.
  ZoomdriftNS::Params params;
  ZoomdriftNS::ZoomdriftCmdUtil::genZoomdriftParams(onTimeline, &params, fade);
  const auto keyFrames = engine->calcZoomdriftKeyframes(params, 0);
  result.cursorPath = params.cursorLocations();
  result.clicks = params.cursorActions();
  const auto actions = project->zdActionBin()->mediasActions(video.get());
  for (const auto& action : *actions) {
    const Range<long long> time = action->timeRange();
    Zoom zoom{toSeconds(time.start, result.editRate),
              toSeconds(time.start + time.duration, result.editRate),
              {0, result.width, 0, result.height}};
    for (const auto& keyFrame : *keyFrames) {
      if (ZoomdriftNS::ZoomdriftCmdUtil::editTime(*onTimeline, keyFrame.time) ==
          time.start + time.duration) {
        zoom.rect = keyFrame.rect;
      }
    }
    result.zooms.push_back(zoom);
  }

  writeFile(projectFile, after);
  OrvParser parser(nullptr, nullptr);
  const boost::shared_ptr<OrvProject> readBack = parser.parseProject(projectFile);
  // The same text alone would pass a file that lost its actions twice over.
  result.readBackSame = readBack && fileText(*readBack) == after &&
                        readBack->zdActionBin()->numActions() == result.zooms.size();
  return result;
}

void ZoomJob::printSummary(std::ostream& out, const Result& result) {
  out << "media: " << result.screenFile << " (" << result.width << 'x' << result.height << ", "
      << formatSeconds(result.seconds) << " s at " << result.editRate.numerator() << '/'
      << result.editRate.denominator() << ")\n";
  out << "sound: " << (result.soundFile.empty() ? "none" : result.soundFile) << '\n';
  out << "zoom actions: " << result.zooms.size() << '\n';
  int number = 0;
  for (const Zoom& zoom : result.zooms) {
    out << "  " << ++number << ": " << formatSeconds(zoom.start) << " s - "
        << formatSeconds(zoom.end) << " s  rect (" << zoom.rect.left << ',' << zoom.rect.top
        << ")-(" << zoom.rect.right << ',' << zoom.rect.bottom << ")\n";
  }
  out << "undo: " << (result.undoExact ? "exact" : "DIFFERS")
      << "; redo: " << (result.redoExact ? "exact" : "DIFFERS") << '\n';
  out << "read back: " << (result.readBackSame ? "same" : "DIFFERS") << '\n';
}

}  // namespace OrvMediaLib
