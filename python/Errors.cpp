// The library's exceptions as Python exception classes, with the same texts:
//
//   Error                 every failure of the library
//     MediaError          the media model (KelMediaLibException)
//       FileError         a file that can't be read or written (IOException)
//       ParseError        a fault in a project file, with `line` and `column`
//     ActionError         the editing model's refusals (OrvException)
//     ZoomError           an automatic zoom engine's refusal, with `code`

#include "Bindings.h"

#include "actions/OrvException.h"
#include "core/IOException.h"
#include "core/KelMediaLibException.h"
#include "core/ParserException.h"
#include "zoomdrift/ZoomdriftException.h"

#include <boost/rational.hpp>

namespace orvpython {
namespace {

// Owned by the module for the life of the interpreter.
PyObject* errorClass = nullptr;
PyObject* mediaErrorClass = nullptr;
PyObject* fileErrorClass = nullptr;
PyObject* parseErrorClass = nullptr;
PyObject* actionErrorClass = nullptr;
PyObject* zoomErrorClass = nullptr;

PyObject* newClass(py::module_& m, const char* name, PyObject* base, const char* doc) {
  const std::string qualified = std::string("orvmedialib.") + name;
  PyObject* made = PyErr_NewExceptionWithDoc(qualified.c_str(), doc, base, nullptr);
  if (!made) {
    throw py::error_already_set();
  }
  m.add_object(name, py::handle(made));
  return made;
}

// Raises `type(text)` with the extra attributes set on the instance.
void raise(PyObject* type, const char* text, const std::function<void(py::object&)>& extras) {
  py::object error = py::reinterpret_borrow<py::object>(type)(py::str(text));
  extras(error);
  PyErr_SetObject(type, error.ptr());
}

void noExtras(py::object&) {}

}  // namespace

py::handle zoomErrorType() {
  return zoomErrorClass;
}

void bindErrors(py::module_& m) {
  errorClass = newClass(m, "Error", PyExc_Exception, "Every failure of the library.");
  mediaErrorClass =
      newClass(m, "MediaError", errorClass, "A misuse or bad input of the media model.");
  fileErrorClass =
      newClass(m, "FileError", mediaErrorClass, "A file that can't be read or written.");
  parseErrorClass = newClass(m, "ParseError", mediaErrorClass,
                             "A fault in a project file; `line` and `column` tell where.");
  actionErrorClass =
      newClass(m, "ActionError", errorClass, "An edit of actions that the editing model refuses.");
  zoomErrorClass = newClass(m, "ZoomError", errorClass,
                            "An automatic zoom engine can't work on what it was given; "
                            "`code` tells why.");

  py::register_exception_translator([](std::exception_ptr thrown) {
    if (!thrown) {
      return;
    }
    try {
      std::rethrow_exception(thrown);
    } catch (const KelMediaLib::ParserException& e) {
      raise(parseErrorClass, e.what(), [&e](py::object& error) {
        error.attr("line") = e.line;
        error.attr("column") = e.column;
      });
    } catch (const KelMediaLib::IOException& e) {
      raise(fileErrorClass, e.what(), noExtras);
    } catch (const KelMediaLib::KelMediaLibException& e) {
      raise(mediaErrorClass, e.what(), noExtras);
    } catch (const OrvMediaLib::OrvException& e) {
      raise(actionErrorClass, e.what(), noExtras);
    } catch (const ZoomdriftNS::ZoomdriftException& e) {
      raise(zoomErrorClass, e.what(),
            [&e](py::object& error) { error.attr("code") = py::cast(e.errorCode()); });
    } catch (const boost::bad_rational& e) {
      raise(errorClass, e.what(), noExtras);
    }
  });

  py::enum_<ZoomdriftNS::ZDERR_CODES>(m, "ZoomErrorCode", "Why a zoom engine refused.")
      .value("NO_RECORDING_REGION", ZoomdriftNS::ZDERR_NO_RECORDING_REGION)
      .value("EMPTY_TARGET_SIZE", ZoomdriftNS::ZDERR_EMPTY_TARGET_SIZE)
      .value("BAD_TIME_SCALE", ZoomdriftNS::ZDERR_BAD_TIME_SCALE)
      .value("BAD_FADE_DURATION", ZoomdriftNS::ZDERR_BAD_FADE_DURATION)
      .value("BAD_SETTING", ZoomdriftNS::ZDERR_BAD_SETTING);
}

}  // namespace orvpython
