#pragma once

#include <boost/shared_ptr.hpp>

#include <vector>

namespace KelMediaLib {

class Effect;
class Parametric;

/// Something that holds an ordered list of effects (a media), applied in
/// list order. It owns its effects and is the owner that maps their time.
/// Edits are the project's: they take no lock. Each change calls
/// `effectsChanged` once.
class Effectable {
 public:
  Effectable();
  /// A copy holds no effects: a cloning owner clones them itself.
  Effectable(const Effectable&);
  Effectable& operator=(const Effectable&) = delete;
  virtual ~Effectable();

  int numEffects() const;
  /// The effect at `index`; throws `KelMediaLibException` out of range.
  boost::shared_ptr<const Effect> effectAt(int index) const;
  /// The index of that very effect; -1 if it isn't held here.
  int indexOfEffect(const Effect* effect) const;
  /// Inserts before `index`; -1 or `numEffects()` appends. Makes this the
  /// effect's owner. Throws `KelMediaLibException` on a null effect, one held
  /// by any effectable already, or an index out of range.
  void insertEffect(boost::shared_ptr<Effect> effect, int index);
  /// Takes the effect at `index` out and clears its owner; throws out of range.
  boost::shared_ptr<Effect> removeEffect(int index);
  /// Exchanges two effects; throws if either index is out of range.
  void swapEffects(int first, int second);

 protected:
  /// The parametric whose axis the held effects map through.
  virtual const Parametric* effectsOwner() const = 0;
  /// Told after each change of the list.
  virtual void effectsChanged();

 private:
  void checkIndex(int index, const char* what) const;

  std::vector<boost::shared_ptr<Effect>> effects_;
};

}  // namespace KelMediaLib
