"""Projects: the file text, undo and redo to the byte, undo groups."""

import fractions

import pytest

import orvmedialib


def test_create_normalises_the_edit_rate():
    assert orvmedialib.Project.create(60, 4).edit_rate == fractions.Fraction(15)
    assert orvmedialib.Project.create(30000, 1001).edit_rate == fractions.Fraction(30000, 1001)


def test_save_writes_the_text_of_to_xml(project, title, tmp_path):
    title["opacity"].set(30, 0.5)
    path = tmp_path / "project.xml"
    project.save(path)
    text = path.read_text(encoding="utf-8")
    assert text == project.to_xml()
    assert text.startswith('<?xml version="1.0" encoding="UTF-8"?>\n<OrvProject version="1.0">')
    assert 'value="0.5"' in text


def test_the_model_reads_back_what_python_built(project, title):
    action = project.add_action(title, 30, 60, [("opacity", 0.0)])
    assert project.tracks[0].media == [title]
    assert title.track == project.tracks[0]
    assert (title.kind, title.start, title.duration, title.end) == ("TextBox", 0, 300, 300)
    assert list(project.action_bin) == [action]
    assert action.media == title
    assert action.bin == project.action_bin
    assert [(r.parameter.name, r.left, r.right) for r in action.ranges] == \
        [("opacity", (30, 1.0), (90, 0.0))]


# Each edit: its undo gives back the file text from before it, byte for byte,
# and its redo the text from after it.
EDITS = {
    "key frame added": lambda p, m: m["opacity"].set(40, 0.25),
    "key frame changed": lambda p, m: m["opacity"].set(0, 0.25),
    "key frame with interpolater": lambda p, m: m["scale0"].set(40, 2.0, "eios"),
    "key frame moved": lambda p, m: (m["rotation2"].set(10, 1.0), m["rotation2"].move(10, 20)),
    "fade action": lambda p, m: p.add_action(m, 30, 60, [("opacity", 0.0)]),
    "action moved and trimmed": lambda p, m: (p.add_action(m, 30, 60, [("opacity", 0.0)]),
                                              p.action_bin.actions_of(m)[0].move(20),
                                              p.action_bin.actions_of(m)[0].trim_end(10)),
    "zoom action": lambda p, m: p.add_action(m, 30, 60, [("scale0", 2.0, "pure_scale"),
                                              ("translation0", 10.0, "translate")]),
    "media moved": lambda p, m: m.move(50),
    "media removed": lambda p, m: m.remove(),
    "text box added": lambda p, m: p.tracks[0].add(p.text_box("Two", 50, 10, 10), 400),
}


@pytest.mark.parametrize("edit", EDITS.values(), ids=EDITS.keys())
def test_undo_and_redo_give_back_the_file_text(project, title, edit):
    before = project.to_xml()
    with project.undo_group():
        edit(project, title)
    after = project.to_xml()
    assert after != before
    project.undo()
    assert project.to_xml() == before
    project.redo()
    assert project.to_xml() == after


def test_undo_restores_the_text_from_before_the_edit(project, title):
    before = project.to_xml()
    project.add_action(title, 30, 60, [("opacity", 0.0)])
    assert project.to_xml() != before
    project.undo()
    assert project.to_xml() == before
    assert len(project.action_bin) == 0


def test_undo_group_makes_one_entry(project, title):
    start = project.history_position
    before = project.to_xml()
    with project.undo_group():
        title["opacity"].set(10, 0.5)
        title["opacity"].set(20, 0.7)
        project.add_action(title, 100, 50, [("opacity", 0.0)])
    assert project.history_position == start + 1
    project.undo()
    assert project.to_xml() == before
    assert project.can_redo


def test_undo_group_that_raises_undoes_its_edits(project, title):
    before = project.to_xml()
    start = project.history_position
    with pytest.raises(orvmedialib.MediaError):
        with project.undo_group():
            title["opacity"].set(10, 0.5)
            title["opacity"].remove(11)
    assert project.to_xml() == before
    assert project.history_position == start


def test_nested_undo_groups_are_one_entry(project, title):
    start = project.history_position
    before = project.to_xml()
    with project.undo_group():
        title["opacity"].set(10, 0.5)
        with project.undo_group():
            title["opacity"].set(20, 0.5)
            title["opacity"].set(30, 0.5)
    assert project.history_position == start + 1
    project.undo()
    assert project.to_xml() == before


def test_history_walks_back_and_forth(project):
    entries = project.history_position
    assert project.can_undo and not project.can_redo
    project.undo()
    assert project.history_position == entries - 1 and project.can_redo
    project.redo()
    assert project.history_position == entries


def test_sources_load_and_give_media(project):
    from conftest import source_dir
    source = project.load_source(source_dir() / "tests" / "data" / "clip.mp4")
    assert project.sources == [source]
    assert [m.kind for m in source.media] == ["VMFile"]
    media = project.tracks[0].add(source.media[0].clone(), 0)
    assert media.file_name.endswith("clip.mp4")
    assert media.width == 64 and media.height == 48
    assert (media.duration, media.source_range) == (30, (0, 30))
