#include "media/media/ConstMediaDispatcher.h"

namespace KelMediaLib {

ConstMediaDispatcher::~ConstMediaDispatcher() = default;

void ConstMediaDispatcher::dispatchMedia(const boost::shared_ptr<const VMFile>&) {}
void ConstMediaDispatcher::dispatchMedia(const boost::shared_ptr<const AMFile>&) {}
void ConstMediaDispatcher::dispatchMedia(const boost::shared_ptr<const IMFile>&) {}
void ConstMediaDispatcher::dispatchMedia(const boost::shared_ptr<const ImageTransition>&) {}
void ConstMediaDispatcher::dispatchMedia(const boost::shared_ptr<const AudioTransition>&) {}
void ConstMediaDispatcher::dispatchMedia(const boost::shared_ptr<const TextBox>&) {}
void ConstMediaDispatcher::dispatchMedia(const boost::shared_ptr<const Callout>&) {}

}  // namespace KelMediaLib
