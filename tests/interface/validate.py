#!/usr/bin/env python3
"""Validates real documents against the schemas, and damaged ones, which must be refused: validate.py SCHEMAS DOCUMENTS

SCHEMAS is docs/schema, DOCUMENTS the file that interface_documents writes.
"""

import copy
import json
import sys
from pathlib import Path

from jsonschema import Draft7Validator

SUFFIX = ".schema.json"

# What must not pass although no real document is near it.
WRONG = [
    ("set_weld_enable", True), ("set_weld_enable", "true"), ("set_weld_enable", "ON"), ("set_weld_enable", ""),
    ("set_virtual_welding", 1), ("set_virtual_welding", "TRUE"), ("set_virtual_welding", None),
    ("set_weld_feed_wire", "FALSE"), ("set_weld_retract_wire", 0), ("set_weld_red_light", []),
    ("set_weld_manual_gas", False), ("set_weld_manual_gas", 1),
    ("start_laserweld_monitor", True), ("start_laserweld_monitor", 0),
    ("laser_weld_data.virtual_welding_status", 0), ("laser_weld_data.weld_redlight_status", "on"),
    ("result", {}), ("result", [7]), ("result", [{"Corvane": 3}]), ("result", [{"Corvane": {"set_weld_enable": True}}]),
    ("result", [{"Corvane": {"set_weld_setting_config": {}}}]),
    ("result", [{"Corvane": {"set_weld_setting_config": {"return": "0"}}}]),
    ("result", [{"Corvane": {"set_weld_feed_wire": {"return": 0.5}}}]),
    ("result", [{"Corvane": {"set_weld_manual_gas": {"return": 2147483648}}}]),
    ("result", [{"Corvane": {"set_weld_enable": {"return": 1}}}]),
    ("result", [{"Corvane": {"set_virtual_welding": {"return": "done"}}}]),
]

MONITOR = {"get_laser_power": 1500, "get_laser_frequency": 1000, "get_laser_dutycycle": 99.5,
           "get_laser_wirespeed": 12.5, "get_laser_weldspeed": 25}

# What must pass although neither the package nor the simulated controller says it.
ALSO_RIGHT = [
    ("result", []), ("result", [{"Other": {"set_weld_enable": {"return": 1}}}, {}]),
    ("result", [{"Corvane": {"set_virtual_welding": {"return": "-12"}, "unknown": {}}}]),
    ("result", [{"Corvane": {"set_virtual_welding": {"return": False}}}]),
    ("weld_monitor_data", MONITOR),
]

# Read, but free to be absent or anything.
NOT_READ = {"weld_setting_config": {"laser_comm_type", "wire_feeder_comm_type"}}


def half(name, value):
    """A fraction where only whole numbers are right."""
    return () if name == "weld_monitor_data" else (value + 0.5,)


def damaged(document):
    """Everything that is wrong with a whole node: a member gone, of another type, beyond its range, or one too many."""
    name, node = document["schema"], document["value"]
    if not isinstance(node, dict):
        return
    is_command = name.startswith("set_")

    def changed(key, value):
        return f"{key} = {json.dumps(value)}", {**copy.deepcopy(node), key: value}

    for key, value in node.items():
        if key in NOT_READ.get(name, ()):
            continue
        rest = copy.deepcopy(node)
        del rest[key]
        yield f"no {key}", rest
        for other in (None, "7", [], {}, *((0, 1) if isinstance(value, bool) else (True, *half(name, value)))):
            yield changed(key, other)
        if not isinstance(value, bool) and document["about"] in ("lowest", "highest"):
            yield changed(key, value + (1 if document["about"] == "highest" else -1))
    if is_command:
        yield changed("unknown_member", 0)


def main():
    validators, failures = {}, []
    for path in sorted(Path(sys.argv[1]).glob("*" + SUFFIX)):
        schema = json.loads(path.read_text(encoding="utf-8"))
        Draft7Validator.check_schema(schema)
        validators[path.name[:-len(SUFFIX)]] = Draft7Validator(schema)
    documents = json.loads(Path(sys.argv[2]).read_text(encoding="utf-8"))
    documents += [{"schema": name, "about": "written by hand", "value": value} for name, value in ALSO_RIGHT]
    wrong = [(name, json.dumps(value), value) for name, value in WRONG]
    wrong += [(document["schema"], what, value) for document in documents for what, value in damaged(document)]
    for name in sorted({document["schema"] for document in documents} - validators.keys()):
        sys.exit(f"{name}: has documents and no schema")
    for document in documents:
        name, about = document["schema"], document["about"]
        for error in validators[name].iter_errors(document["value"]):
            failures.append(f"{name}, {about}: {'.'.join(map(str, error.path))} {error.message}")
    for name, what, value in wrong:
        if validators[name].is_valid(value):
            failures.append(f"{name}: {what} passes and must not")
    described = {document["schema"] for document in documents}
    for name in sorted(validators.keys() - described):
        failures.append(f"{name}: no document was collected for this schema")
    print(*failures, sep="\n", end="\n" if failures else "")
    print(f"{len(validators)} schemas, {len(documents)} documents, {len(wrong)} damaged ones: {len(failures)} failures")
    return 1 if failures else 0


sys.exit(main())
