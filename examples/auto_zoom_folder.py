#!/usr/bin/python3
"""Batch job: automatic zoom for every screen recording in a folder.

A recording is a folder holding one video file and the metadata files that the
recorder wrote beside it (front windows, cursor locations, cursor actions,
changed rectangles; any of them may be missing). For each one this script
makes a project on the recording's size, puts the recording on a track, lets
the reference engine (or --engine follow settings) zoom it, and saves the
project file into the recording's folder.

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
    """The recording folders under `folder`, each with its video, by name."""
    for candidate in sorted(p for p in pathlib.Path(folder).iterdir() if p.is_dir()):
        videos = sorted(p for p in candidate.iterdir() if p.suffix.lower() in VIDEO_SUFFIXES)
        if len(videos) == 1:
            yield candidate, videos[0]


def zoom_recording(folder, video, engine, output_name):
    project = orvmedialib.Project.create(RATE)
    source = project.load_source(video)
    recording = source.media[0].clone()
    project.new_visual_mixer(recording.width, recording.height)
    project.new_visual_track().add(recording, 0)
    files = {key: name for key, name in METADATA.items() if (folder / name).exists()}
    recording.set_screen_metadata(**files)
    actions = project.auto_zoom(recording, engine)
    output = folder / output_name
    project.save(output)
    return len(actions), output


def main(argv=None):
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("folder", help="the folder of recording folders")
    parser.add_argument("--zoom", type=float, default=2.0, help="how much a zoom enlarges")
    parser.add_argument("--output", default="zoomed.xml", help="project file name")
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
