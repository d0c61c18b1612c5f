#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <functional>
#include <unordered_map>
#include <vector>

namespace KelMediaLib {

/// The record of one edit of the model, which makes its undo and redo exact.
///
/// Each object of the model that keeps its own state (a parameter, an action,
/// an action bin...) notes itself with `note` before it first changes while a
/// journal is open on the thread. The journal keeps the object's state from
/// before that change and, once the edit is over, its state after. Undo puts
/// back the states from before, redo those from after: the same objects,
/// with the same values and times, whatever path the edit took.
///
/// Objects are held weakly: one that has died can't be seen, so it needs no
/// restoring. Edits of objects that keep no journal (media on tracks,
/// effects, edges) are reported with `noteUnjournaledEdit`; such an edit is
/// undone by its command, and the journal then sets the rest exact.
class EditJournal {
 public:
  /// The saved states of one object.
  class Entry {
   public:
    virtual ~Entry();
    virtual void captureAfter() = 0;
    virtual void restoreBefore() = 0;
    virtual void restoreAfter() = 0;
  };

  /// An entry for an object that gives its state as a value:
  /// `State journalState() const` and `void restoreJournalState(const State&)`.
  template <class Object, class State>
  class StateEntry : public Entry {
   public:
    explicit StateEntry(const boost::shared_ptr<Object>& object)
        : object_(object), before_(object->journalState()), after_(before_) {}
    void captureAfter() override {
      if (const boost::shared_ptr<Object> object = object_.lock()) {
        after_ = object->journalState();
      }
    }
    void restoreBefore() override { restore(before_); }
    void restoreAfter() override { restore(after_); }

   private:
    void restore(const State& state) {
      if (const boost::shared_ptr<Object> object = object_.lock()) {
        object->restoreJournalState(state);
      }
    }
    boost::weak_ptr<Object> object_;
    State before_;
    State after_;
  };

  EditJournal();
  EditJournal(const EditJournal&) = delete;

  /// A journal that keeps nothing, for building a model that nobody will
  /// undo (a project being read): open, it spares the notes and the journal
  /// of its own that each command would otherwise get. Shared and never
  /// changed, so any thread may open it.
  static EditJournal* discarding();
  EditJournal& operator=(const EditJournal&) = delete;

  /// Whether this journal keeps states (all but `discarding()` do).
  bool keeps() const { return keeps_; }

  /// The journal open on this thread; null when none is.
  static EditJournal* current();

  /// Notes `object` (which is `key`) before its first change in the open
  /// journal, if there is one; later changes of it in the same journal need
  /// nothing more.
  template <class Object>
  static void note(const boost::shared_ptr<Object>& object) {
    EditJournal* journal = current();
    if (journal && journal->keeps_ && object) {
      journal->entryFor(object.get(), [&object] {
        return new StateEntry<Object, decltype(object->journalState())>(object);
      });
    }
  }

  /// Notes one part of `object` (named by `key`) before its first change in
  /// the open journal, if there is one. For objects too large to be saved
  /// whole on every edit: their entry, a `PartEntry` (an `Entry` with
  /// `notePart(key)`), saves the parts named and nothing else. An object is
  /// noted either whole or by parts, never both.
  template <class PartEntry, class Object, class Key>
  static void notePart(const boost::shared_ptr<Object>& object, const Key& key) {
    EditJournal* journal = current();
    if (journal && journal->keeps_ && object) {
      static_cast<PartEntry*>(journal->entryFor(object.get(), [&object] {
        return new PartEntry(object);
      }))->notePart(key);
    }
  }

  /// Tells the open journal, if any, of an edit it can't restore.
  static void noteUnjournaledEdit();

  bool hasUnjournaledEdits() const { return unjournaled_; }
  bool empty() const { return entries_.empty() && !unjournaled_; }

  /// Takes the states after the edit; call once the edit is over.
  void seal();
  /// Puts back every noted object's state from before the edit.
  void restoreBefore() const;
  /// Puts back every noted object's state from after the edit.
  void restoreAfter() const;
  /// Appends a later journal: the two then undo and redo as one.
  void append(const EditJournal& later);

  /// Opens `journal` on this thread for its life, and closes it after.
  /// A null journal suspends journaling (while states are put back).
  class Scope {
   public:
    explicit Scope(EditJournal* journal);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    EditJournal* previous_;
  };

 private:
  /// The entry of `key`, made by `make` when the object is first noted.
  template <class Make>
  Entry* entryFor(const void* key, const Make& make) {
    Entry*& slot = noted_[key];
    if (!slot) {
      const boost::shared_ptr<Entry> entry(make());
      entries_.push_back(entry);
      slot = entry.get();
    }
    return slot;
  }

  std::vector<boost::shared_ptr<Entry>> entries_;
  explicit EditJournal(bool keeps);

  std::unordered_map<const void*, Entry*> noted_;
  bool unjournaled_;
  bool keeps_;
};

}  // namespace KelMediaLib
