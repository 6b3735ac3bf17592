"""A plain building of any number of stories, for sheets of any length."""

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "verification"))

from host_model import DEAD, EARTHQUAKE_X, EARTHQUAKE_Z, HostModel  # noqa: E402

BAYS_X, BAYS_Y = 3, 2
BAY, STORY = 6.0, 3.6  # m
DRIFT_DEAD, DRIFT_X, DRIFT_Y = 0.0001, 0.006, 0.005  # m in every story
SHEAR, WEIGHT = 8.0, 100.0  # kN that every floor adds to each column
INPUT = "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\nFIN\n"


def tower(stories):
    """The text of a host model file: Z vertical, twelve columns a story, beams at every floor."""
    model = HostModel(z_up=True)
    plan = [(x, y) for y in range(BAYS_Y + 1) for x in range(BAYS_X + 1)]
    floors = [{place: model.add_node(BAY * place[0], BAY * place[1], STORY * level,
                                     support=level == 0) for place in plan}
              for level in range(stories + 1)]
    for level, floor in enumerate(floors[1:], 1):
        for place, node in floor.items():
            model.move(node, DEAD, DRIFT_DEAD * level, 0.0)
            model.move(node, EARTHQUAKE_X, DRIFT_X * level, 0.0)
            model.move(node, EARTHQUAKE_Z, 0.0, DRIFT_Y * level)
            carried = stories + 1 - level
            column = model.add_member(floors[level - 1][place], node)
            model.load_column(column, DEAD, (0.0, 0.0), WEIGHT * carried)
            model.load_column(column, EARTHQUAKE_X, (SHEAR * carried, 0.0), 0.0)
            model.load_column(column, EARTHQUAKE_Z, (0.0, SHEAR * carried), 0.0)
        for x, y in plan:
            for beside in ((x + 1, y), (x, y + 1)):
                if beside in floor:
                    model.add_member(floor[x, y], floor[beside])
    return model.text()
