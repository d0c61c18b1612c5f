#pragma once

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

namespace KelMediaLib {

template <class T>
class Parameter;
template <class T>
class Interpolater;
template <class T>
class Rect;
class AudioPosition;
class Color;
class IMFile;
class Point;
class TransformMatrix;

/// Visitor over the value types of parameters: a parameter's `dispatch` calls
/// the `receive` that fits its type. An interpolating parameter arrives as the
/// `Parameter<T>` it derives from. Every form does nothing unless overridden.
class ParameterDispatcher {
 public:
  virtual ~ParameterDispatcher();

  virtual void receive(const boost::shared_ptr<Parameter<double>>& parameter);
  virtual void receive(const boost::shared_ptr<Parameter<float>>& parameter);
  virtual void receive(const boost::shared_ptr<Parameter<int>>& parameter);
  virtual void receive(const boost::shared_ptr<Parameter<Point>>& parameter);
  virtual void receive(const boost::shared_ptr<Parameter<Color>>& parameter);
  virtual void receive(const boost::shared_ptr<Parameter<AudioPosition>>& parameter);
  virtual void receive(const boost::shared_ptr<Parameter<Rect<float>>>& parameter);
  virtual void receive(const boost::shared_ptr<Parameter<TransformMatrix>>& parameter);
  virtual void receive(const boost::shared_ptr<Parameter<std::string>>& parameter);
  virtual void receive(const boost::shared_ptr<Parameter<std::vector<Rect<float>>>>& parameter);
  virtual void receive(const boost::shared_ptr<Parameter<boost::shared_ptr<IMFile>>>& parameter);

  virtual void receive(
      const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<int>>>>& parameter);
  virtual void receive(
      const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<float>>>>& parameter);
  virtual void receive(
      const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<double>>>>& parameter);
  virtual void receive(
      const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<Point>>>>& parameter);
  virtual void receive(
      const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<Color>>>>& parameter);
  virtual void receive(
      const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<AudioPosition>>>>&
          parameter);
  virtual void receive(
      const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<TransformMatrix>>>>&
          parameter);
  virtual void receive(
      const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<Rect<float>>>>>& parameter);
};

}  // namespace KelMediaLib
