"""Projects and recordings that the Python tests share."""

import os
import pathlib

import pytest

import orvmedialib

RATE = 30
CANVAS = (1280, 720)

# A screen recording small enough to write in a test: raw frames in a
# YUV4MPEG2 file, which FFmpeg's probe reads like any video.
RECORDING_SIZE = (320, 180)
RECORDING_FPS = 10
RECORDING_SECONDS = 20

# The activity of the recording, in seconds: the pointer travels to the right
# half, rests there and clicks, then jumps to the lower left and clicks again.
LOCATIONS = [(0.0, 40, 40), (2.0, 40, 40), (3.0, 240, 60), (5.0, 240, 60),
             (10.0, 60, 150), (12.0, 60, 150)]
CLICKS = [5.0, 12.0]


def source_dir():
    return pathlib.Path(os.environ.get("ORV_SOURCE_DIR",
                                       pathlib.Path(__file__).resolve().parents[2]))


def write_recording(folder, name="screen"):
    """Writes a recording and its metadata files into `folder`; returns the
    video's path."""
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    width, height = RECORDING_SIZE
    video = folder / (name + ".y4m")
    frame = b"FRAME\n" + bytes(width * height * 3 // 2)
    with open(video, "wb") as out:
        out.write(b"YUV4MPEG2 W%d H%d F%d:1 Ip A1:1 C420jpeg\n"
                  % (width, height, RECORDING_FPS))
        out.write(frame * (RECORDING_FPS * RECORDING_SECONDS))
    (folder / "windows.dat").write_text("0 0 0 320 180\n")
    (folder / "locations.dat").write_text(
        "".join("%g %d %d\n" % record for record in LOCATIONS))
    (folder / "actions.dat").write_text("".join("%g 1\n" % t for t in CLICKS))
    (folder / "dirty.dat").write_text("")
    return video


def screen_project(video):
    """A project with the recording of `video` on a track, its metadata set."""
    project = orvmedialib.Project.create(RATE)
    project.new_visual_mixer(*CANVAS)
    track = project.new_visual_track()
    source = project.load_source(video)
    media = track.add(source.media[0].clone(), 0)
    media.set_screen_metadata(windows="windows.dat", locations="locations.dat",
                              actions="actions.dat", dirty="dirty.dat")
    return project, media


@pytest.fixture
def project():
    """A project with a canvas and one visual track."""
    made = orvmedialib.Project.create(RATE)
    made.new_visual_mixer(*CANVAS)
    made.new_visual_track()
    return made


@pytest.fixture
def title(project):
    """A text box of 300 units at 0 on the project's track."""
    return project.tracks[0].add(project.text_box("Hello", 300, 320, 60), 0)


@pytest.fixture
def recording(tmp_path):
    return write_recording(tmp_path)


@pytest.fixture
def screen(recording):
    return screen_project(recording)
