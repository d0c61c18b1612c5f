"""Objects taken from a project stay usable after the script drops the project,
and a project that nothing holds any more is freed."""

import gc
import weakref

import orvmedialib
from conftest import screen_project


def built_project():
    project = orvmedialib.Project.create(30)
    project.new_visual_mixer(640, 480)
    track = project.new_visual_track()
    title = track.add(project.text_box("Hi", 300, 100, 50), 0)
    action = project.add_action(title, 30, 60, [("opacity", 0.0)])
    return project, track, title, action


# Each takes an object out of a fresh project, drops the project, and uses it.
KEPT = {
    "track": lambda p, t, m, a: (t, lambda o: o.media[0]["opacity"].value_at(90) == 0.0),
    "media": lambda p, t, m, a: (m, lambda o: o.track.media == [o]),
    "parameter": lambda p, t, m, a: (m["opacity"], lambda o: (o.set(200, 0.5), len(o))[1] == 3),
    "action": lambda p, t, m, a: (a, lambda o: (o.move(10), o.start)[1] == 40),
    "bin": lambda p, t, m, a: (p.action_bin, lambda o: [x.start for x in o] == [30]),
    "range": lambda p, t, m, a: (a.ranges[0], lambda o: o.parameter.value_at(90) == 0.0),
    "iterator": lambda p, t, m, a: (iter(m["opacity"]), lambda o: next(o)[0] == 30),
    "undo group": lambda p, t, m, a: (p.undo_group(),
                                      lambda o: o.__enter__().__exit__(None, None, None) is False),
}


def test_objects_outlive_the_project_variable():
    for name, take in KEPT.items():
        kept, use = take(*built_project())
        gc.collect()
        assert use(kept), name


def test_media_keeps_its_history_working():
    project, track, title, action = built_project()
    parameter = title["opacity"]
    del project, track, title, action
    gc.collect()
    parameter.set(100, 0.25)
    assert parameter.value_at(100) == 0.25


class Probe(orvmedialib.Zoomdrift):
    """An engine whose collection shows that what held it is gone."""

    def keyframes(self, params):
        return []

    def keyframe_at(self, params, time):
        return [(time, params.recording_regions[0][1])]


def test_a_dropped_project_is_freed_with_the_engine_its_history_holds(recording):
    project, media = screen_project(recording)
    engine = Probe()
    project.auto_zoom(media, engine)
    gone = weakref.ref(engine)
    del engine
    gc.collect()
    assert gone() is not None  # the command in the history holds it
    project.undo()
    del project, media
    gc.collect()
    assert gone() is None
