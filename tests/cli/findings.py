"""Holds findings against what the readers of their forms want: findings.py SARIF JUNIT RESULTS FAILURES FILE."""
import json
import pathlib
import sys
import xml.etree.ElementTree as xml

import jsonschema


def of(kind, **more):
    return {"type": kind, **more}


def record(required, **properties):
    return of("object", required=required, properties=properties, additionalProperties=False)


def message(**more):
    return record(["text"], text=of("string", minLength=1), **more)


LEVEL = {"enum": ["none", "note", "warning", "error"]}
INDEX = of("integer", minimum=0)
# the parts of SARIF 2.1.0 that are used, and nothing else
LOCATION = record(
    ["logicalLocations"],
    logicalLocations=of("array", minItems=1, items=record(["name", "fullyQualifiedName"], name=of("string"), kind=of("string"),
                                                          fullyQualifiedName=of("string"))),
    physicalLocation=record(["artifactLocation"], artifactLocation=record(["uri"], uri=of("string", pattern="^[A-Za-z0-9._~/%:-]+$")),
                            region=record(["startLine"], startLine=of("integer", minimum=1))))
RULE = record(["id"], id=of("string", pattern="^GA[0-9]{3}$"), shortDescription=message(), defaultConfiguration=record(["level"], level=LEVEL))
RESULT = record(["ruleId", "ruleIndex", "level", "message", "locations"], ruleId=of("string"), ruleIndex=INDEX, level=LEVEL, message=message(),
                locations=of("array", minItems=1, maxItems=1, items=LOCATION),
                properties=record(["refusal"], refusal=of("string", pattern="^[a-z]{3}[0-9]+$")))
DRIVER = record(["name", "rules"], name=of("string"), version=of("string"), rules=of("array", uniqueItems=True, items=RULE))
RUN = record(["tool", "results"], tool=record(["driver"], driver=DRIVER), columnKind={"enum": ["utf16CodeUnits", "unicodeCodePoints"]},
             results=of("array", items=RESULT))
SARIF = record(["version", "runs"], version={"const": "2.1.0"}, runs=of("array", minItems=1, maxItems=1, items=RUN))

sarif = json.loads(pathlib.Path(sys.argv[1]).read_text())
results, failures, file = int(sys.argv[3]), int(sys.argv[4]), sys.argv[5]
jsonschema.Draft7Validator.check_schema(SARIF)
jsonschema.validate(sarif, SARIF)
run = sarif["runs"][0]
rules = run["tool"]["driver"]["rules"]
assert len(run["results"]) == results, len(run["results"])
assert len({rule["id"] for rule in rules}) == len(rules)
for result in run["results"]:
    rule = rules[result["ruleIndex"]]
    assert rule["id"] == result["ruleId"] and rule["defaultConfiguration"]["level"] == result["level"], result
    assert result["locations"][0]["physicalLocation"]["artifactLocation"]["uri"] == file, result
    assert ("region" in result["locations"][0]["physicalLocation"]) == file.endswith(".jsonl"), result

junit = xml.parse(sys.argv[2]).getroot()
assert junit.tag == "testsuites" and [suite.tag for suite in junit] == ["testsuite"]
cases = junit.findall("testsuite/testcase")
names = [case.get("name") for case in cases]
assert len(set(names)) == len(names) == int(junit[0].get("tests")) == int(junit.get("tests"))
assert all(case.get("classname") for case in cases)
failed = [case for case in cases if case.find("failure") is not None]
assert len(failed) == failures == int(junit[0].get("failures")) == int(junit.get("failures")), len(failed)
assert all(case.find("failure").text and case.find("failure").get("message") for case in failed)
