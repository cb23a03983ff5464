"""Edits a model as one would in a notebook: look, try, change, undo, save.

    PYTHONPATH=build/release/python /usr/bin/python3 examples/edit_model.py
"""

import pathlib
import tempfile

import gattr

# %% the job, and what is in it
m = gattr.replay(pathlib.Path(__file__).with_name("forming.jsonl"))
print(m, "with", ", ".join(m.boundary_conditions))
print(m.history())  # in a notebook the last expression of a cell shows the same in colour

# %% one tool, step by step
punch = m.boundary_conditions["Punch"]
for step in m.steps:
    print(f"{step.name:10} {punch[step].status.name:14} {punch[step].u2}")

# %% what would come of letting go of the holder earlier?
holder = m.boundary_conditions["Holder"]
with m.dry_run() as tried:
    holder.reset("Release")
    holder.deactivate("Retract")
row = tried.history.attributes.index((holder.kind, holder.name))
print("tried:", [gattr.Status(number).name for number in tried.history.numpy()[row]], tried.findings or "nothing stands in the way")

# %% a deeper stroke and a longer rest, as one edit
changes: list[gattr.Change] = []
listening = m.on_change(changes.append)
with m.transaction():
    punch["Draw-2"].u2 = -28
    m.steps["Dwell"].timePeriod = 2.0
print(changes[-1].label, [change.name for change in changes[-1].objects])

# %% a mistake, and what is said of it
try:
    punch.set("Draw-3", u2=-30)
except gattr.Refused as refused:
    print(refused.text, refused.hint)

# %% no, back again; and names that follow
m.undo()
m.boundary_conditions["Locator"].rename("Pin")
print(punch["Draw-2"].u2, [change.cause for change in changes], "Pin" in m.boundary_conditions)
listening.end()

# %% kept
with tempfile.TemporaryDirectory() as folder:
    path = pathlib.Path(folder, "forming.gadb")
    m.save(path)
    with gattr.open(path) as again:
        again.boundary_conditions["Punch"]["Draw-2"].u2 = gattr.FREED
    print(gattr.open(path).boundary_conditions["Punch"]["Draw-2"].u2)
