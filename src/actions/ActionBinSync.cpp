#include "actions/ActionBinSync.h"

#include "actions/ActionBin.h"
#include "actions/OrvException.h"
#include "media/media/Media.h"
#include "media/timeline/Timeline.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace OrvMediaLib {

ActionBinSync::ActionBinSync(boost::shared_ptr<const KelMediaLib::Timeline> timeline,
                             boost::shared_ptr<ActionBin> firstBin,
                             boost::shared_ptr<ActionBin> secondBin)
    : timeline_(timeline), firstBin_(firstBin), secondBin_(secondBin) {
  if (!timeline_ || !firstBin_ || !secondBin_) {
    throw OrvException("ActionBinSync needs a timeline and two action bins");
  }
  medias_ = boost::make_shared<MediaList>(timeline_->allMedias());
}

void ActionBinSync::observerUpdate() {
  const boost::shared_ptr<MediaList> now = boost::make_shared<MediaList>(timeline_->allMedias());
  for (const auto& media : *medias_) {
    if (std::find(now->begin(), now->end(), media) != now->end()) {
      continue;
    }
    for (const auto& bin : {firstBin_, secondBin_}) {
      if (bin->hasMedia(media)) {
        bin->removeMedia(media);
      }
    }
  }
  medias_ = now;
}

}  // namespace OrvMediaLib
