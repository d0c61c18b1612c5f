"""Parameters as sequences of key frames (time, value, interpolater)."""

import pytest


def test_a_parameter_at_rest_has_its_default_at_zero(title):
    opacity = title["opacity"]
    assert list(opacity) == [(0, 1.0, "linr")]
    assert (len(opacity), opacity.default, opacity.interpolating) == (1, 1.0, True)
    assert title["text"].key_frames == [(0, "Hello", None)]
    assert not title["text"].interpolating


def test_key_frames_are_edited_and_read_in_time_order(title):
    scale = title["scale0"]
    scale.set(100, 3.0)
    scale.set(50, 2.0, "esIn")
    scale.set(0, 0.5)
    assert scale.key_frames == [(0, 0.5, "linr"), (50, 2.0, "esIn"), (100, 3.0, "esIn")]
    assert scale.times == [0, 50, 100]
    assert (scale[0], scale[-1]) == ((0, 0.5, "linr"), (100, 3.0, "esIn"))
    assert scale.at(50) == (50, 2.0, "esIn") and scale.at(51) is None
    scale.move(100, 200)
    scale.remove(50)
    # The esIn set at 50 goes with its key frame: the one in force at 200 is linr from 0.
    assert scale.key_frames == [(0, 0.5, "linr"), (200, 3.0, "linr")]
    with pytest.raises(IndexError):
        scale[2]


@pytest.mark.parametrize("interpolater, middle", [
    ("linr", 2.0), ("left", 1.0), ("esIn", 1.5), ("esOt", 1.0 + 2 * 0.5 ** 0.5), ("eios", 2.0)])
def test_values_between_key_frames_follow_the_interpolater(title, interpolater, middle):
    scale = title["scale0"]
    scale.set(0, 1.0, interpolater)
    scale.set(100, 3.0)
    assert scale.value_at(50) == pytest.approx(middle)
    assert (scale.value_at(-10), scale.value_at(500)) == (1.0, 3.0)


def test_text_steps_from_key_frame_to_key_frame(title):
    text = title["text"]
    text.set(100, "World")
    text.set(0, "Hi")
    assert [text.value_at(t) for t in (0, 99, 100)] == ["Hi", "Hi", "World"]


def test_each_edit_is_one_history_entry(project, title):
    start = project.history_position
    title["scale0"].set(50, 2.0, "eios")
    title["scale0"].set(50, 2.5)
    title["scale0"].remove(50)
    assert project.history_position == start + 3
    project.undo()
    assert title["scale0"].at(50) == (50, 2.5, "eios")
    project.undo()
    assert title["scale0"].at(50) == (50, 2.0, "eios")


def test_parameters_of_a_media_are_found_by_name(title):
    names = [p.name for p in title.parameters]
    assert {"opacity", "text", "scale0", "translation2", "sourceCrop3"} <= set(names)
    assert "scale1" in title and "volume" not in title
    assert title["scale1"] == title["scale1"]
    assert title["scale1"] != title["scale0"]
    assert len({title["scale1"], title["scale1"]}) == 1
