#pragma once

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class AMFile;
class AudioTransition;
class Callout;
class IMFile;
class ImageTransition;
class TextBox;
class VMFile;

/// Visitor over the kinds of media: a media's `dispatch` calls the
/// `dispatchMedia` of its kind. Every form does nothing unless overridden.
class ConstMediaDispatcher {
 public:
  virtual ~ConstMediaDispatcher();

  virtual void dispatchMedia(const boost::shared_ptr<const VMFile>& media);
  virtual void dispatchMedia(const boost::shared_ptr<const AMFile>& media);
  virtual void dispatchMedia(const boost::shared_ptr<const IMFile>& media);
  virtual void dispatchMedia(const boost::shared_ptr<const ImageTransition>& media);
  virtual void dispatchMedia(const boost::shared_ptr<const AudioTransition>& media);
  virtual void dispatchMedia(const boost::shared_ptr<const TextBox>& media);
  virtual void dispatchMedia(const boost::shared_ptr<const Callout>& media);
};

}  // namespace KelMediaLib
