"""Failures arrive as exception classes of the module, with the library's texts,
and leave the model as it was."""

import pytest

import orvmedialib


def test_exception_classes_form_one_hierarchy():
    for name in ["MediaError", "ActionError", "ZoomError"]:
        assert issubclass(getattr(orvmedialib, name), orvmedialib.Error)
    assert issubclass(orvmedialib.FileError, orvmedialib.MediaError)
    assert issubclass(orvmedialib.ParseError, orvmedialib.MediaError)
    assert issubclass(orvmedialib.Error, Exception)


def overlapping_action(project, title):
    project.add_action(title, 30, 60, [("opacity", 0.0)])
    project.add_action(title, 60, 60, [("opacity", 0.5)])


# (what fails, the class, the text)
FAILURES = {
    "zero denominator": (lambda p, m: orvmedialib.Project.create(30, 0),
                         orvmedialib.Error, "bad rational: zero denominator"),
    "missing key frame": (lambda p, m: m["opacity"].remove(11), orvmedialib.MediaError,
                          'parameter "opacity": can\'t remove the key frame at 11: '
                          "there is no key frame at that time"),
    "move onto a key frame": (lambda p, m: (m["opacity"].set(5, 1.0), m["opacity"].move(5, 0)),
                              orvmedialib.MediaError,
                              'parameter "opacity": can\'t move the key frame at 5 to 0, '
                              "which holds a key frame already"),
    "colliding actions": (overlapping_action, orvmedialib.ActionError,
                          "unable to add action, it collides with another existing action"),
    "unreadable source": (lambda p, m: p.load_source("/nonexistent/clip.mp4"),
                          orvmedialib.MediaError, None),
    "metadata of a text box": (lambda p, m: m.set_screen_metadata(windows="w.dat"),
                               TypeError, "a TextBox has no screen metadata"),
    "unknown parameter": (lambda p, m: m["volume"], KeyError, None),
    "unknown interpolater": (lambda p, m: m["scale0"].set(5, 1.0, "bouncy"), ValueError, None),
    "unknown transform": (lambda p, m: p.add_action(m, 0, 10, [("opacity", 1.0, "spin")]),
                          ValueError, None),
    "zoom on a text box": (lambda p, m: p.auto_zoom(m), TypeError, None),
}


@pytest.mark.parametrize("fails, kind, text", FAILURES.values(), ids=FAILURES.keys())
def test_failures_raise_their_class_and_change_nothing(project, title, fails, kind, text):
    before = project.to_xml()
    with project.undo_group():
        pass
    with pytest.raises(kind) as raised:
        with project.undo_group():
            fails(project, title)
    if text is not None:
        assert str(raised.value) == text
    assert project.to_xml() == before


def test_undo_without_history_is_a_media_error():
    project = orvmedialib.Project.create(30)
    with pytest.raises(orvmedialib.MediaError):
        project.undo()
    with pytest.raises(orvmedialib.MediaError):
        project.redo()


def test_save_to_a_missing_folder_is_a_file_error(project, tmp_path):
    path = tmp_path / "missing" / "project.xml"
    with pytest.raises(orvmedialib.FileError) as raised:
        project.save(path)
    assert str(raised.value) == 'IOException: unable to open file "%s" for writing.' % path


def test_zoom_error_carries_its_code():
    with pytest.raises(orvmedialib.ZoomError) as raised:
        orvmedialib.FollowEngine(margin=0.5)
    assert raised.value.code == orvmedialib.ZoomErrorCode.BAD_SETTING
