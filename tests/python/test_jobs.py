"""The orv tool's jobs from Python, and project files read back."""

import pytest

import orvmedialib


@pytest.fixture(scope="module")
def bundle(tmp_path_factory):
    return orvmedialib.sample(tmp_path_factory.mktemp("sample"))


def test_the_zoom_job_checks_itself_and_reads_back(bundle, tmp_path):
    output = tmp_path / "p.orvproj"
    result = orvmedialib.zoom(bundle, output, svg=tmp_path / "z.svg")
    assert (result["undo_exact"], result["redo_exact"], result["read_back_same"]) == \
        (True, True, True)
    assert result["size"] == (1280, 720) and result["seconds"] == 10.0
    assert result["sound"].endswith("audiotrack0.wav")
    zooms = result["zooms"]
    assert zooms and all(0 <= start < end <= 10 for start, end, _ in zooms)
    assert all(rect.right - rect.left == 640 for _, _, rect in zooms)
    assert (tmp_path / "z.svg").read_text().startswith("<svg")


def test_a_loaded_project_writes_the_same_text_and_has_no_history(bundle, tmp_path):
    output = tmp_path / "p.orvproj"
    zooms = orvmedialib.zoom(bundle, output)["zooms"]
    project = orvmedialib.Project.load(output)
    assert project.to_xml() == output.read_text()
    assert not project.can_undo and project.history == []
    assert len(project.zoom_action_bin) == len(zooms)
    # It is a project like any: edits undo to the text that was read.
    project.tracks[0].media[0].move(30)
    project.undo()
    assert project.to_xml() == output.read_text()


def test_a_moved_recording_is_found_where_the_script_says(bundle, tmp_path):
    import shutil
    copy = shutil.copytree(bundle, tmp_path / "rec.vdpak")
    output = tmp_path / "p.orvproj"
    orvmedialib.zoom(copy, output)
    moved = shutil.move(str(copy), tmp_path / "moved.vdpak")

    with pytest.raises(orvmedialib.ParseError, match="Missing File:"):
        orvmedialib.Project.load(output)
    asked = []
    project = orvmedialib.Project.load(output, on_missing=lambda path: asked.append(path) or moved)
    assert asked == [str(copy)]
    screen = project.tracks[0].media[0]
    assert screen.has_screen_metadata
    assert all(f.startswith(str(moved)) for f in screen.screen_metadata_files.values())


def test_errors_of_the_handlers_and_the_file_reach_the_script(bundle, tmp_path):
    import shutil
    copy = shutil.copytree(bundle, tmp_path / "rec.vdpak")
    output = tmp_path / "p.orvproj"
    orvmedialib.zoom(copy, output)
    shutil.rmtree(copy)

    def refuse(path):
        raise LookupError("not found: " + path)
    with pytest.raises(LookupError, match="not found: "):
        orvmedialib.Project.load(output, on_missing=refuse)
    # Left out, the source can't be shown by the media that the file puts on tracks.
    with pytest.raises(orvmedialib.MediaError, match="ident not found in source table"):
        orvmedialib.Project.load(output, on_missing=lambda path: None)
    with pytest.raises(orvmedialib.FileError):
        orvmedialib.Project.load(tmp_path / "none.orvproj")
    (tmp_path / "bad.orvproj").write_text("<OrvProject><Project")
    with pytest.raises(orvmedialib.ParseError) as caught:
        orvmedialib.Project.load(tmp_path / "bad.orvproj")
    assert caught.value.line == 1
