#pragma once

#include "core/Attribute.h"
#include "media/parser/AttributeCast.h"
#include "media/parser/ParserState.h"
#include "media/project/Project.h"
#include "values/SetAttributeValueCmd.h"

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace KelMediaLib {

/// An "Attributes" block: each "Attribute" names one of the owner's
/// attributes and gives its value, set with `SetAttributeValueCmd`. A name
/// the owner doesn't have is a `ParserException`.
class AttributesState : public ParserState {
 public:
  /// Sets one attribute from the text of "value".
  using Setter = std::function<void(const std::string& value)>;
  using Setters = std::vector<std::pair<std::string, Setter>>;

  AttributesState(Parser* parser, Setters setters);
  ParserState* startElement(const char* name, const char** atts) override;

  /// The setter of `attribute` through a command on `project`.
  template <class T>
  static Setter setAttribute(boost::shared_ptr<const Attribute<T>> attribute,
                             boost::shared_ptr<Project> project) {
    return [attribute, project](const std::string& text) {
      project->execute(
          boost::make_shared<SetAttributeValueCmd<T>>(attribute, attributeCast<T>(text)));
    };
  }

 private:
  Setters setters_;
};

}  // namespace KelMediaLib
