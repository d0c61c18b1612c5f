#include "media/commands/SplitMediaCmd.h"

#include "core/KelMediaLibException.h"
#include "core/XMLText.h"
#include "media/commands/AddMediaCmd.h"
#include "media/commands/TrimEndCmd.h"
#include "media/commands/TrimStartCmd.h"
#include "media/media/Media.h"
#include "media/timeline/Track.h"

#include <ostream>
#include <sstream>

namespace KelMediaLib {

SplitMediaCmd::SplitMediaCmd(boost::shared_ptr<const Track> track,
                             boost::shared_ptr<const Media> media, long long time)
    : track_(track), media_(media), time_(time) {}

boost::shared_ptr<SplitMediaCmd> SplitMediaCmd::create(boost::shared_ptr<const Track> track,
                                                       boost::shared_ptr<const Media> media,
                                                       long long time) {
  return boost::shared_ptr<SplitMediaCmd>(new SplitMediaCmd(track, media, time));
}

std::string SplitMediaCmd::description() const {
  return "SplitMediaCmd";
}

SplitMediaCmd* SplitMediaCmd::clone() const {
  return new SplitMediaCmd(track_, media_, time_);
}

void SplitMediaCmd::executeCommands(CommandHandler const*) {
  if (!track_ || !media_) {
    throw KelMediaLibException("SplitMediaCmd: a split needs a track and a media");
  }
  if (media_->parent() != track_) {
    throw KelMediaLibException("SplitMediaCmd: the media isn't on the track given");
  }
  const Range<long long> range = media_->range();
  if (time_ <= range.start || time_ >= range.end()) {
    std::ostringstream text;
    text << "SplitMediaCmd: can't split the media at " << range << " at the time " << time_
         << ", which isn't strictly inside it";
    throw KelMediaLibException(text.str());
  }
  // Checked before cloning: the clone decorator acts on the clone at once.
  second_ = media_->cloneMedia();
  execute(TrimEndCmd::create(track_, media_, range.end() - time_));
  execute(AddMediaCmd::create(track_, second_, range.start));
  execute(TrimStartCmd::create(track_, second_, time_ - range.start));
}

void SplitMediaCmd::xmlName(Options& options) const {
  writeLiteral(options.out, "SplitMediaCmd");
}

}  // namespace KelMediaLib
