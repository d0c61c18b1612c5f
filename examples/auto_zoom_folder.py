#!/usr/bin/python3
"""Batch job: automatic zoom for every screen recording in a folder.

A recording is either a recording bundle (a folder holding a "project.xml",
such as the one `orv sample` or `orvmedialib.sample` writes), or a plain folder
holding one video file and the metadata files that the recorder wrote beside
it (front windows, cursor locations, cursor actions, changed rectangles; any
of them may be missing). For each one this script makes a project on the
recording's size, puts the recording on a track, lets the reference engine
zoom it, and saves the project file: beside a bundle as NAME.orvproj, into a
plain folder as zoomed.xml.

    PYTHONPATH=build/python python3 examples/auto_zoom_folder.py RECORDINGS [--zoom 2]
"""

import argparse
import pathlib
import sys

import orvmedialib

VIDEO_SUFFIXES = {".mov", ".mp4", ".mkv", ".avi", ".y4m"}
METADATA = {"windows": "windows.dat", "locations": "locations.dat",
            "actions": "actions.dat", "dirty": "dirty.dat"}
RATE = 30


def recordings(folder):
    """The recordings under `folder` by name: (folder, video), the video None
    for a bundle."""
    for candidate in sorted(p for p in pathlib.Path(folder).iterdir() if p.is_dir()):
        if (candidate / "project.xml").exists():
            yield candidate, None
            continue
        videos = sorted(p for p in candidate.iterdir() if p.suffix.lower() in VIDEO_SUFFIXES)
        if len(videos) == 1:
            yield candidate, videos[0]


def zoom_recording(folder, video, engine, output_name):
    project = orvmedialib.Project.create(RATE)
    # A bundle is a source like a video file; its screen comes with its metadata.
    source = project.load_source(folder if video is None else video)
    screens = [m for m in source.media if m.kind == "VMFile"]
    if not screens:
        raise orvmedialib.MediaError("no screen video")
    recording = screens[0].clone()
    project.new_visual_mixer(recording.width, recording.height)
    project.new_visual_track().add(recording, 0)
    if video is None:
        output = folder.with_suffix(".orvproj")
    else:
        files = {key: name for key, name in METADATA.items() if (folder / name).exists()}
        recording.set_screen_metadata(**files)
        output = folder / output_name
    actions = project.auto_zoom(recording, engine)
    project.save(output)
    return len(actions), output


def main(argv=None):
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("folder", help="the folder of recording folders")
    parser.add_argument("--zoom", type=float, default=2.0, help="how much a zoom enlarges")
    parser.add_argument("--output", default="zoomed.xml",
                        help="project file name in a plain recording folder")
    args = parser.parse_args(argv)

    engine = orvmedialib.FollowEngine(zoom=args.zoom)
    failures = 0
    for folder, video in recordings(args.folder):
        try:
            count, output = zoom_recording(folder, video, engine, args.output)
            print("%s: %d zoom actions, saved %s" % (folder.name, count, output))
        except orvmedialib.Error as error:
            failures += 1
            print("%s: %s" % (folder.name, error), file=sys.stderr)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
