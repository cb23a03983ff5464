"""Holds journals and models against the schemas that the program prints: validate.py JOURNAL-SCHEMA MODEL-SCHEMA FOLDER...

Every line of every *.jsonl and every *.gattr.json of the folders has to fit, also all lines of one as a document; mistakes must not."""
import json
import pathlib
import sys

import jsonschema

journal, model = (jsonschema.Draft7Validator(json.loads(pathlib.Path(path).read_text())) for path in sys.argv[1:3])
jsonschema.Draft7Validator.check_schema(journal.schema)
jsonschema.Draft7Validator.check_schema(model.schema)
wrong, lines, models = [], 0, {}
for folder in map(pathlib.Path, sys.argv[3:]):
    for path in folder.glob("*.jsonl"):
        commands = [json.loads(line) for line in path.read_text().splitlines() if line.strip() and not line.startswith("#")]
        lines += len(commands)
        wrong += [f"{path.name}: {command}" for command in commands if not journal.is_valid(command)]
    for path in folder.glob("*.gattr.json"):
        models[path.name] = json.loads(path.read_text())
        wrong += [f"{path.name}: {list(error.absolute_path)}" for error in model.iter_errors(models[path.name])]
if lines < 100 or len(models) < 5:
    wrong.append(f"{lines} lines and {len(models)} models are too few")

step = {"command": "StaticStep", "name": "S", "initialInc": 0.1}
fix = {"command": "DisplacementBC", "name": "Fix", "createStepName": "S", "u1": 0.0}
on = {"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S", "u1": 1}
right = [step, fix, on, {**fix, "u1": "UNSET", "region": None}, {**on, "boundaryCondition": ["Fix", "Hold"], "stepName": ["S", "T"]},
         {"commands": []}, {"$schema": "s", "commands": [step, fix]}, {"command": "undo", "dryRun": True},
         {"command": "transaction", "commands": [step, on]}]
mistakes = [
    # command
    {}, {"name": "S"}, {"command": "StaticStpe", "name": "S"}, {"command": 3}, {"command": None}, [], "undo", 7, [step],
    {"commands": [{"command": "StaticStpe", "name": "S"}]}, {"commands": {}}, {"commands": [], "more": 1}, {"$schema": "s"},
    {"command": "transaction", "commands": [{"command": "nothing"}]},
    # argument: unknown, missing, extra
    {**step, "initialInk": 0.1}, {"command": "StaticStep"}, {**fix, "u7": 0.0}, {**on, "u7": 0.0}, {**on, "createStepName": "S"},
    {key: value for key, value in on.items() if key != "stepName"}, {key: value for key, value in on.items() if key != "boundaryCondition"},
    {"command": "deactivate", "boundaryCondition": "Fix", "stepName": "S", "toStepName": "T"}, {"command": "undo", "name": "S"},
    {"command": "deactivate", "region": "Rim", "stepName": "S"}, {"command": "setModel"},
    # type
    {**step, "initialInc": "a tenth"}, {**step, "initialInc": [0.1]}, {**step, "maxNumInc": 1.5}, {**step, "maxNumInc": 2**31},
    {**step, "name": 3}, {**step, "dryRun": 1}, {**fix, "u1": True}, {**fix, "u1": None}, {**on, "stepName": []}, {**on, "stepName": [1]},
    {"commands": [step], "$schema": 7}, {**fix, "name": ["A", "B"]},
    # text
    {**step, "nlgeom": "YES"}, {**fix, "u1": "FREE"}, {**fix, "distributionType": "EVEN"}, {"command": "setModelSpace", "space": "FOUR_D"},
    {"command": "replace", "step": "S", "procedure": "StaticStep", "replacementPolicy": "KEEP"},
]
wrong += [f"refused: {command}" for command in right if not journal.is_valid(command)]
wrong += [f"taken: {command}" for command in mistakes if journal.is_valid(command)]


def edited(change):
    text = json.loads(json.dumps(models["forming.gattr.json"]))
    change(text)
    return text


mistakes_of_models = [
    lambda text: text.pop("format"), lambda text: text.update(version=99), lambda text: text.update(more=1), lambda text: text.update(space="FLAT"),
    lambda text: text["extensions"].pop("steps"), lambda text: text["extensions"].update(things={}),
    lambda text: text["extensions"]["boundaryConditions"]["map"]["Die"].update({"class": "kbcC_NoBC"}),
    lambda text: text["extensions"]["boundaryConditions"]["map"]["Punch"]["states"][0].update(u7=0),
    lambda text: text["extensions"]["boundaryConditions"]["map"]["Punch"]["states"][1].update(u2="deep"),
    lambda text: text["extensions"]["boundaryConditions"]["map"]["Punch"]["states"][1].update(u2State="LOST"),
    lambda text: text["extensions"]["steps"]["steps"][1]["procedure"].update(nlgeom="PERHAPS"),
]
wrong += [f"taken: model {number}" for number, change in enumerate(mistakes_of_models) if model.is_valid(edited(change))]
print("\n".join(wrong))
sys.exit(1 if wrong else 0)
