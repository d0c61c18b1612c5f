#pragma once

#include "media/media/FileRepresentation.h"
#include "media/media/VisualMedia.h"
#include "values/LeftParameter.h"
#include "values/Point.h"
#include "values/Rect.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <string>

namespace KelMediaLib {

template <class T>
class Attribute;

/// A speech-bubble image with a text, pointing at a spot of the picture.
/// Built and bounded like an `IMFile`. Parameter "text" (stepped, empty);
/// attributes "hotspot" (the spot pointed at) and "textRect" (where the
/// text goes in the bubble).
///
/// Written as `<Callout id start duration scalar mediaStart mediaDuration
/// trackNumber src textRect hotspot trimStartSum>`, with an "ident" attribute;
/// as for an `IMFile`, "mediaStart" is the start before the trims, which a
/// reader replays.
class Callout : public VisualMedia, public FileRepresentation {
 public:
  static boost::shared_ptr<Callout> create(long long mediaStart, long long duration,
                                           boost::weak_ptr<const ThreadSafe> project,
                                           boost::shared_ptr<const Source> source,
                                           unsigned int trackIndex);

  boost::shared_ptr<const Attribute<Point>> hotSpotAttr() const { return hotSpot_; }
  boost::shared_ptr<const Attribute<Rect<float>>> textRectAttr() const { return textRect_; }
  boost::shared_ptr<LeftParameter<std::string>> textParam() const { return text_; }

  float width() const override;
  float height() const override;
  bool isStill() const override;
  void dispatch(ConstMediaDispatcher& dispatcher) const override;

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 protected:
  Media* copyKind() const override;

 private:
  Callout(long long mediaStart, long long duration, boost::weak_ptr<const ThreadSafe> project,
          boost::shared_ptr<const Source> source, unsigned int trackIndex);
  Callout(const Callout& other);

  boost::shared_ptr<Attribute<Point>> hotSpot_;
  boost::shared_ptr<Attribute<Rect<float>>> textRect_;
  boost::shared_ptr<LeftParameter<std::string>> text_;
};

}  // namespace KelMediaLib
