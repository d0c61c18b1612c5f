"""The Python side of the bindings' overhead: 10,000 key frames added to a
text box's opacity through the module, each one an edit of the project's
history, as bench/keyframes_from_cpp_bench.cpp does from C++.

Run by `make bench-python`, which also runs the C++ side; the difference per
key frame is the cost of a call from Python."""

import time

import orvmedialib

KEY_FRAMES = 10000
ROUNDS = 5


def title_opacity():
    project = orvmedialib.Project.create(30)
    project.new_visual_mixer(1280, 720)
    track = project.new_visual_track()
    title = track.add(project.text_box("Hello", KEY_FRAMES * 10, 320, 60), 0)
    return project, title["opacity"]


def best_of(rounds, work):
    """The least processor time of `rounds` runs: the machine may be shared, and
    the C++ side's figure to compare with is its CPU time."""
    best = float("inf")
    for _ in range(rounds):
        project, opacity = title_opacity()
        start = time.process_time()
        work(opacity)
        best = min(best, time.process_time() - start)
    return best


def add_key_frames(opacity):
    for i in range(1, KEY_FRAMES + 1):
        opacity.set(i * 10, float(i % 2))
    assert len(opacity) == KEY_FRAMES + 1


def read_names(opacity):
    # The floor of any call into the module: a property that does next to nothing.
    for _ in range(KEY_FRAMES):
        opacity.name


def main():
    adding = best_of(ROUNDS, add_key_frames)
    floor = best_of(ROUNDS, read_names)
    print("python: %d key frames added in %.1f ms of CPU, %.2f us a key frame"
          % (KEY_FRAMES, adding * 1e3, adding / KEY_FRAMES * 1e6))
    print("python: a bare property read costs %.2f us" % (floor / KEY_FRAMES * 1e6))


if __name__ == "__main__":
    main()
