"""The batch script of examples/ on a folder of recordings."""

import os
import subprocess
import sys

from conftest import source_dir, write_recording

SCRIPT = source_dir() / "examples" / "auto_zoom_folder.py"


def run_script(folder):
    return subprocess.run([sys.executable, str(SCRIPT), str(folder)], capture_output=True,
                          text=True, env=dict(os.environ), timeout=120)


def test_every_recording_gets_a_zoomed_project(tmp_path):
    for name in ["first", "second"]:
        write_recording(tmp_path / name)
    (tmp_path / "notes").mkdir()
    done = run_script(tmp_path)
    assert done.returncode == 0, done.stderr
    lines = done.stdout.splitlines()
    assert [line.split(":")[0] for line in lines] == ["first", "second"]
    for name in ["first", "second"]:
        text = (tmp_path / name / "zoomed.xml").read_text()
        assert 'name="zdActionBin"' in text and "<Action" in text


def test_a_broken_recording_is_reported_and_the_others_done(tmp_path):
    write_recording(tmp_path / "good")
    write_recording(tmp_path / "broken")
    (tmp_path / "broken" / "locations.dat").write_text("1.0 not-a-number 3\n")
    done = run_script(tmp_path)
    assert done.returncode == 1
    assert done.stderr.startswith("broken: ") and "locations.dat" in done.stderr
    assert (tmp_path / "good" / "zoomed.xml").exists()
    assert not (tmp_path / "broken" / "zoomed.xml").exists()


def test_the_sample_bundle_gets_a_project_beside_it(tmp_path):
    import orvmedialib
    orvmedialib.sample(tmp_path)
    done = run_script(tmp_path)
    assert done.returncode == 0, done.stderr
    assert done.stdout.startswith("sample.vdpak: ")
    project = orvmedialib.Project.load(tmp_path / "sample.orvproj")
    assert len(project.zoom_action_bin) == int(done.stdout.split(": ")[1].split()[0]) > 0
