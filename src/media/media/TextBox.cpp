#include "media/media/TextBox.h"

#include "core/Attribute.h"
#include "core/KelMediaLibException.h"
#include "core/XMLText.h"
#include "media/media/ConstMediaDispatcher.h"
#include "media/media/Transformer.h"

#include <boost/pointer_cast.hpp>

#include <cmath>
#include <ostream>

namespace KelMediaLib {

boost::shared_ptr<TextBox> TextBox::create(const std::string& text, long long duration,
                                           float width, float height,
                                           boost::weak_ptr<const ThreadSafe> project) {
  if (!std::isfinite(width) || !std::isfinite(height) || width < 0 || height < 0) {
    throw KelMediaLibException("a text box can't measure " + std::to_string(width) + " by " +
                               std::to_string(height));
  }
  return boost::shared_ptr<TextBox>(new TextBox(text, duration, width, height, project));
}

TextBox::TextBox(const std::string& text, long long duration, float width, float height,
                 boost::weak_ptr<const ThreadSafe> project)
    : VisualMedia(project, 0, duration),
      width_(width),
      height_(height),
      text_(LeftParameter<std::string>::create(project, "text", text)) {
  registerParameter(text_);
}

TextBox::TextBox(const TextBox& other)
    : VisualMedia(other),
      width_(other.width_),
      height_(other.height_),
      text_(LeftParameter<std::string>::create(other.projectMutex(), "text",
                                               other.text_->defaultValue())) {
  registerParameter(text_);
}

bool TextBox::isStill() const { return true; }

void TextBox::dispatch(ConstMediaDispatcher& dispatcher) const {
  dispatcher.dispatchMedia(boost::static_pointer_cast<const TextBox>(shared_from_this()));
}

Media* TextBox::copyKind() const { return new TextBox(*this); }

void TextBox::xmlName(Options& options) const { writeLiteral(options.out, "TextBox"); }

void TextBox::xmlAttributes(Options& options) const {
  std::ostream& out = options.out;
  writeTimeAttributes(options);
  writeXMLAttribute(out, "width", width_);
  writeXMLAttribute(out, "height", height_);
  writeXMLAttribute(out, "trimStartSum", replayableTrimStartSum());
}

void TextBox::xmlBody(Options& options, int depth) const {
  std::vector<const XMLable*> parameters{text_.get()};
  const std::vector<const XMLable*> visual = visualParameters();
  parameters.insert(parameters.end(), visual.begin(), visual.end());
  writeParameters(options, depth, parameters);
  writeAttributes(options, depth, {ident().get()});
  transformer()->toXML(options, depth, std::string());
  writeLinks(options, depth);
  writeEffects(options, depth);
  writeEdges(options, depth);
}

}  // namespace KelMediaLib
