#pragma once

#include "media/media/VisualMedia.h"
#include "values/LeftParameter.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <string>

namespace KelMediaLib {

/// A generated still picture of a text, of a given size. Its source stretch
/// starts at 0 and follows its trims. Parameter "text" (stepped), at rest on
/// the text it was made with.
///
/// Written as `<TextBox id start duration width height trimStartSum>`.
class TextBox : public VisualMedia {
 public:
  /// Throws `KelMediaLibException` on a negative duration or a negative or
  /// non-finite size.
  static boost::shared_ptr<TextBox> create(const std::string& text, long long duration,
                                           float width, float height,
                                           boost::weak_ptr<const ThreadSafe> project);

  boost::shared_ptr<LeftParameter<std::string>> text() const { return text_; }

  float width() const override { return width_; }
  float height() const override { return height_; }
  bool isStill() const override;
  void dispatch(ConstMediaDispatcher& dispatcher) const override;

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 protected:
  Media* copyKind() const override;

 private:
  TextBox(const std::string& text, long long duration, float width, float height,
          boost::weak_ptr<const ThreadSafe> project);
  TextBox(const TextBox& other);

  float width_;
  float height_;
  boost::shared_ptr<LeftParameter<std::string>> text_;
};

}  // namespace KelMediaLib
