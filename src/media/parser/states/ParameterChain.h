#pragma once

#include "media/parser/states/InterpolatingParamHandler.h"
#include "media/parser/states/ParameterErrorHandler.h"
#include "media/parser/states/ParameterHandler.h"
#include "media/parser/states/VectorParamHandler.h"

#include <memory>
#include <string>
#include <vector>

namespace KelMediaLib {
namespace parser {

/// Builds an owner's chain of parameter handlers front to back:
///   ParameterChain(context).vector("sourceCrop", ...).interpolating("opacity", ...)
///       .end("VMFile State Parameters")
class ParameterChain {
 public:
  explicit ParameterChain(ParameterContext context) : context_(std::move(context)) {}

  template <class P>
  ParameterChain& plain(const std::string& name, boost::shared_ptr<const P> parameter) {
    links_.push_back(std::make_unique<ParameterHandler<P>>(name, parameter, context_));
    return *this;
  }
  template <class T>
  ParameterChain& interpolating(const std::string& name,
                                boost::shared_ptr<const InterpolatingParam<T>> parameter) {
    links_.push_back(std::make_unique<InterpolatingParamHandler<T>>(name, parameter, context_));
    return *this;
  }
  ParameterChain& vector(const std::string& name, boost::shared_ptr<const VectorParam> vector) {
    links_.push_back(std::make_unique<VectorParamHandler>(name, vector, context_));
    return *this;
  }
  /// Closes the chain with an error handler that names `owner`.
  std::unique_ptr<ParseParameterHandler> end(const std::string& owner) {
    return finish(std::make_unique<ParameterErrorHandler>(owner));
  }
  /// Closes the chain with `last`.
  std::unique_ptr<ParseParameterHandler> finish(std::unique_ptr<ParseParameterHandler> last) {
    std::unique_ptr<ParseParameterHandler> head = std::move(last);
    for (auto link = links_.rbegin(); link != links_.rend(); ++link) {
      (*link)->setChild(std::move(head));
      head = std::move(*link);
    }
    links_.clear();
    return head;
  }

 private:
  ParameterContext context_;
  std::vector<std::unique_ptr<ParseParameterHandler>> links_;
};

}  // namespace parser
}  // namespace KelMediaLib
