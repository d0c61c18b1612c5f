#pragma once

#include "values/Parameter.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace KelMediaLib {

/// A parameter that steps: between key frames it has the value of the key
/// frame on the left (a text that changes at given times, for instance).
template <class T>
class LeftParameter : public Parameter<T> {
 public:
  static boost::shared_ptr<LeftParameter<T>> create(boost::weak_ptr<const ThreadSafe> project,
                                                    const std::string& name,
                                                    const T& defaultValue) {
    return boost::shared_ptr<LeftParameter<T>>(new LeftParameter<T>(project, name, defaultValue));
  }

 protected:
  LeftParameter(boost::weak_ptr<const ThreadSafe> project, const std::string& name,
                const T& defaultValue)
      : Parameter<T>(project, name, defaultValue) {}
};

extern template class LeftParameter<std::string>;

}  // namespace KelMediaLib
