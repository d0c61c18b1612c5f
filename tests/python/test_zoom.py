"""Automatic zoom from Python: the reference engine, and engines written in
Python."""

import pytest

import orvmedialib
from orvmedialib import Rectangle

FADE = 15
WHOLE = Rectangle(left=0, top=0, right=320, bottom=180)
TOP_LEFT = Rectangle(left=0, top=0, right=160, bottom=90)
BOTTOM_RIGHT = Rectangle(left=160, top=90, right=320, bottom=180)


class Scripted(orvmedialib.Zoomdrift):
    """Answers what the test gives it and keeps what it was asked."""

    def __init__(self, key_frames):
        super().__init__()
        self.key_frames = key_frames
        self.asked = []

    def keyframes(self, params):
        self.asked.append(params)
        return self.key_frames

    def keyframe_at(self, params, time):
        self.asked.append(params)
        return [(time, self.key_frames[0][1])]


class Delegating(orvmedialib.Zoomdrift):
    """The reference engine's answers, passed through Python."""

    def __init__(self):
        super().__init__()
        self.inner = orvmedialib.FollowEngine()

    def keyframes(self, params):
        return self.inner.keyframes(params)

    def keyframe_at(self, params, time):
        return self.inner.keyframe_at(params, time)


class Refusing(orvmedialib.Zoomdrift):
    def __init__(self, error):
        super().__init__()
        self.error = error

    def keyframes(self, params):
        raise self.error

    keyframe_at = lambda self, params, time: self.keyframes(params)


def test_the_engine_is_given_the_recordings_metadata(screen):
    project, media = screen
    engine = Scripted([(90, TOP_LEFT)])
    project.auto_zoom(media, engine, fade=FADE)
    params = engine.asked[0]
    # A mask of 1 is the first button: event 0.
    assert params.cursor_actions == [(150, 0), (360, 0)]
    assert params.cursor_locations[:2] == [(0, 40, 40), (60, 40, 40)]
    assert params.recording_regions == [(0, WHOLE)]
    assert params.fore_windows == [(0, WHOLE)]
    assert (params.time_scale, params.fade_duration) == (30, FADE)
    assert media.zoom_params(FADE).cursor_actions == params.cursor_actions


def test_a_python_engines_key_frames_become_zoom_actions(screen):
    project, media = screen
    before = project.to_xml()
    actions = project.auto_zoom(media, Scripted([(90, TOP_LEFT), (300, BOTTOM_RIGHT)]),
                                fade=FADE)
    assert [(a.start, a.end) for a in actions] == [(75, 90), (285, 300)]
    assert list(project.zoom_action_bin) == actions
    assert len(project.action_bin) == 0
    # A quarter of the recording fills the canvas: 1280 / 160.
    assert [media["scale0"].value_at(t) for t in (0, 90)] == [1.0, 8.0]
    after = project.to_xml()
    project.undo()
    assert project.to_xml() == before
    assert len(project.zoom_action_bin) == 0 and media["scale0"].times == [0]
    project.redo()
    assert project.to_xml() == after


def test_the_reference_engine_through_python_gives_the_same_zooms(recording):
    from conftest import screen_project
    results = []
    for engine in [None, orvmedialib.FollowEngine(), Delegating()]:
        project, media = screen_project(recording)
        actions = project.auto_zoom(media, engine, fade=FADE)
        results.append([(a.start, a.end, [(r.parameter.name, r.left, r.right) for r in a.ranges])
                        for a in actions])
    assert len(results[0]) >= 2
    assert results[1] == results[0] and results[2] == results[0]


def test_zoom_at_one_time_asks_the_engine_for_that_moment(screen):
    project, media = screen
    engine = Scripted([(0, BOTTOM_RIGHT)])
    actions = project.zoom_at(media, 100, engine, fade=FADE)
    assert [(a.start, a.end) for a in actions] == [(100, 115)]
    replaced = project.replace_with_zoom(actions[0], Scripted([(0, TOP_LEFT)]))
    assert [(a.start, a.end) for a in replaced] == [(100, 115)]
    assert list(project.zoom_action_bin) == replaced


REFUSALS = {
    "zoom error": (orvmedialib.ZoomError("no activity"), orvmedialib.ZoomError),
    "python error": (RuntimeError("engine broke"), RuntimeError),
}


@pytest.mark.parametrize("error, kind", REFUSALS.values(), ids=REFUSALS.keys())
def test_an_engine_that_raises_adds_nothing(screen, error, kind):
    project, media = screen
    before, entries = project.to_xml(), project.history_position
    with pytest.raises(kind) as raised:
        project.auto_zoom(media, Refusing(error), fade=FADE)
    assert str(raised.value) == str(error)
    assert project.to_xml() == before and project.history_position == entries


def test_zoom_error_of_a_python_engine_keeps_its_code(screen):
    project, media = screen
    error = orvmedialib.ZoomError("no region")
    error.code = orvmedialib.ZoomErrorCode.NO_RECORDING_REGION
    with pytest.raises(orvmedialib.ZoomError) as raised:
        project.auto_zoom(media, Refusing(error))
    assert raised.value.code == orvmedialib.ZoomErrorCode.NO_RECORDING_REGION


def test_zoom_at_prints_an_engines_refusal_and_stands_as_done(screen, capfd):
    project, media = screen
    entries = project.history_position
    assert project.zoom_at(media, 100, Refusing(orvmedialib.ZoomError("not now"))) == []
    assert "not now" in capfd.readouterr().out
    assert project.history_position == entries + 1


def test_engines_must_answer_with_rectangles(screen):
    project, media = screen

    class Silent(orvmedialib.Zoomdrift):
        pass

    with pytest.raises(TypeError, match="must define keyframes"):
        project.auto_zoom(media, Silent())
    with pytest.raises(RuntimeError):
        project.auto_zoom(media, Scripted([(90, (0, 0, 10, 10))]))
    assert len(project.zoom_action_bin) == 0


def test_the_reference_engine_on_hand_made_params():
    params = orvmedialib.ZoomParams()
    params.target_size = (640, 360)
    params.time_scale = 10
    params.fade_duration = 5
    params.recording_regions = [(0, Rectangle(left=0, top=0, right=640, bottom=360))]
    params.cursor_locations = [(0, 100, 100), (100, 100, 100), (400, 100, 100)]
    params.cursor_actions = [(100, 1)]
    key_frames = orvmedialib.FollowEngine(zoom=2).keyframes(params)
    assert key_frames[0][1].width == 320 and key_frames[0][1].height == 180
    assert key_frames[-1][1] == params.recording_regions[0][1]
    assert orvmedialib.FollowEngine(zoom=1).keyframes(params) == []
