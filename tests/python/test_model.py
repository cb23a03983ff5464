"""Models, handles and what refuses."""

import copy
import gc
import inspect
import math
import os
import pathlib
import pickle
import signal
import tempfile
import threading
import unittest
import weakref

import gattr
from gattr import _gattr
from gattr import _model
from support import ROOT, forming


class Commands(unittest.TestCase):
    def test_every_command_is_a_method_of_model_or_handle_with_its_arguments_and_help(self):
        for info in _gattr.commands():
            owners = [getattr(gattr, kind[0].upper() + kind[1:]) for kind in info.kinds] or [gattr.Model]
            for owner in owners:
                if info.only_class:
                    owner = next(one for one in owner.__subclasses__() if hasattr(one, info.name))
                method = getattr(owner, info.name)
                self.assertIn(info.name, dir(owner))
                if info.name == "transaction":
                    continue
                self.assertLess(info.meaning[1:], method.__doc__[1:] + "\x7f")
                taken = inspect.signature(method).parameters
                for argument in info.arguments:
                    if argument.name == "previous" and info.kinds and owner is not gattr.Step:
                        continue
                    self.assertEqual(argument.required, taken[argument.name].default is inspect.Parameter.empty, (info.name, argument.name))
                    self.assertIn(argument.meaning, method.__doc__)

    def test_no_command_and_no_kind_hides_a_method_of_model(self):
        own = {name for name, value in vars(gattr.Model).items() if getattr(value, "__module__", None) == _model.__name__}
        own = {name for name in own if vars(gattr.Model)[name].__code__.co_filename == _model.__file__} | set(vars(_gattr.Model))
        self.assertLess({"execute", "save", "history", "check", "copy", "dump", "journal"}, own)
        made = [info.name for info in _gattr.commands() if not info.kinds and info.name != "transaction"] + [
            name for name in gattr._objects.mappings if name != "steps"
        ]
        self.assertEqual(len(made), len(set(made)))
        self.assertFalse(own.intersection(made))

    def test_no_member_is_hidden_by_what_handles_have(self):
        for kind in gattr._objects.kinds:
            own, state = gattr._objects.members_of(kind)
            owner = getattr(gattr, gattr._objects.class_name(kind))
            self.assertFalse([name for name in own if hasattr(owner, name)], kind)
            self.assertFalse([name for name in state if hasattr(gattr.State, name)], kind)

    def test_a_journal_of_every_example_does_what_its_replay_does(self):
        for path in sorted((ROOT / "examples").glob("*.jsonl")):
            replayed = gattr.replay(path)
            again = gattr.Model()
            for command in replayed.journal:
                again.execute(command)
            self.assertEqual(replayed.dump(), again.dump(), path)
            self.assertEqual(replayed.dump(), gattr.load(replayed.dump()).dump(), path)

    def test_a_refusal_tells_all_and_changes_nothing(self):
        model, punch = forming()
        before = model.dump()
        for run, kind, told in (
            (lambda: punch.set("Form", u2="deep"), ValueError, {"module": "kbc", "code": 36, "member": "u2", "step": "Form"}),
            (lambda: model.execute({"command": "deactivat"}), KeyError, {"module": None, "hint": 'Did you mean "deactivate"?'}),
            (lambda: punch.deactivate("Nope"), gattr.Refused, {"module": "kbc", "code": 3, "object": 'boundaryCondition "Punch"'}),
            (lambda: model.StaticStep(name="Form"), gattr.Refused, {"module": "kpr"}),
            (lambda: punch.deactivate(), KeyError, {"text": 'The argument "stepName" is missing.'}),
        ):
            with self.assertRaises(gattr.Refused) as raised:
                run()
            self.assertIsInstance(raised.exception, kind)
            for name, value in told.items():
                self.assertEqual(getattr(raised.exception, name), value)
            self.assertIn(raised.exception.text, str(raised.exception))
            self.assertEqual(str(pickle.loads(pickle.dumps(raised.exception))), str(raised.exception))
        with self.assertRaises(TypeError):
            punch.set("Form", u2=object())
        with self.assertRaises(OverflowError):
            punch.set("Form", u2=10**400)
        endless = []
        endless.append(endless)
        with self.assertRaises(RecursionError):
            punch.set("Form", u2=endless)
        self.assertEqual(model.dump(), before)
        with self.assertRaises(TypeError):
            punch.deactivate("Form", "Form")


class Handles(unittest.TestCase):
    def test_members_are_read_and_set_as_python_values(self):
        model, punch = forming()
        self.assertEqual((punch["Initial"].u2, punch["Press"].u2, punch["Form"].u2), (None, -10.0, -12.0))
        self.assertEqual((punch["Form"].u1, punch["Form"].u3, punch.region, punch.localCsys), (0.0, None, "Top", None))
        for value, read in ((5, 5.0), (gattr.FREED, gattr.FREED), ("FREED", gattr.FREED)):
            punch["Form"].u2 = value
            self.assertEqual(punch["Form"].u2, read)
        for value in (None, gattr.UNSET):
            with self.subTest(value=value):
                punch["Press"].u2 = -10.0
                punch["Press"].u2 = value
                self.assertIsNone(punch["Press"].u2)
        model.steps["Form"].initialInc = 0.25
        self.assertEqual(model.steps[2].initialInc, 0.25)
        self.assertIs(punch["Form"].status, gattr.Status.MODIFIED)
        self.assertEqual(punch.history(), [0, 1, 3])

    def test_an_unknown_attribute_raises_wherever_it_is(self):
        model, punch = forming()
        for owner in (punch, punch["Form"], punch["Initial"], model, model.steps["Form"]):
            with self.assertRaises(AttributeError):
                owner.u9
            with self.assertRaises(AttributeError):
                owner.u9 = 1
        with self.assertRaisesRegex(AttributeError, "did you mean 'region'"):
            punch.regoin

    def test_handles_follow_their_objects_or_raise(self):
        model, punch = forming()
        form = punch["Form"]
        marked = {punch: "punch", model.steps["Form"]: "step"}
        self.assertEqual(len({hash(one) for one in [*marked, *model.regions.values()]}), 2 + len(model.regions))
        punch.rename("Stamp")
        self.assertEqual((marked[punch], marked[model.boundary_conditions["Stamp"]]), ("punch", "punch"))
        self.assertEqual((punch.name, form.u2), ("Stamp", -12.0))
        model.steps["Form"].rename("Draw")
        self.assertEqual((form.step, form.u2), ("Draw", -12.0))
        model.undo()
        model.undo()
        self.assertEqual((punch.name, form.step), ("Punch", "Form"))
        self.assertEqual(punch, model.boundary_conditions["Punch"])
        punch.delete()
        self.assertFalse(punch.exists)
        for use in (lambda: punch.region, lambda: punch["Form"].u2, lambda: punch.deactivate("Form"), lambda: setattr(form, "u2", 1)):
            self.assertRaises(gattr.Gone, use)
        model.PinnedBC(name="Punch", createStepName="Form", region="Top")
        self.assertEqual(punch.history(), [0, 0, 1])
        model.steps["Form"].delete()
        self.assertRaises(gattr.Gone, lambda: form.status)

    def test_steps_are_a_sequence_and_a_mapping_and_kinds_are_mappings(self):
        model, punch = forming()
        self.assertEqual([step.name for step in model.steps], ["Initial", "Press", "Form"])
        self.assertEqual(model.steps.keys(), ["Initial", "Press", "Form"])
        self.assertEqual((model.steps[-1], len(model.steps[1:])), (model.steps["Form"], 2))
        self.assertTrue("Form" in model.steps and model.steps["Form"] in model.steps and "Nope" not in model.steps)
        self.assertEqual(dict(model.boundary_conditions), {"Punch": punch})
        self.assertIsInstance(punch, gattr.DisplacementBC)
        self.assertIsInstance(punch, gattr.BoundaryCondition)
        for mapping in (model.boundary_conditions, model.steps, model.loads):
            self.assertRaises(KeyError, lambda: mapping["Nope"])
        again = punch.copy("Again")
        self.assertEqual((again.name, again["Form"].u2), ("Again", -12.0))
        self.assertIsNone(again.delete())


class Editing(unittest.TestCase):
    def test_a_transaction_is_one_edit_or_none(self):
        model, punch = forming()
        before, told = model.dump(), []
        subscription = model.on_change(told.append)
        with self.assertRaises(gattr.Refused), model.transaction():
            punch["Form"].u1 = 1
            punch.deactivate("Nope")
        self.assertEqual((model.dump(), told), (before, []))
        with model.transaction():
            other = threading.Thread(target=lambda: told.append(self.assertRaises(gattr.Busy, model.dump)))
            other.start()
            other.join()
            self.assertEqual(told, [None], "it is in use until it ends")
            told.clear()
            punch["Form"].u1 = 1
            punch.rename("Stamp")
        self.assertEqual([len(told), told[0].objects[0].before, told[0].objects[0].steps], [1, "Punch", ["Form"]])
        model.undo()
        self.assertEqual((model.dump(), told[1].cause, punch.name), (before, "undo", "Punch"))
        with model.transaction(), self.assertRaises(RuntimeError), model.dry_run():
            pass
        subscription.end()
        model.redo()
        self.assertEqual(len(told), 2)

    def test_a_callback_that_names_its_model_does_not_keep_it(self):
        model, punch = forming()
        told, kept = [], weakref.ref(model)
        model.on_change(lambda change: told.append(len(model.history())))
        punch.deactivate("Form")
        self.assertEqual(told, [1])
        del model, punch
        gc.collect()
        self.assertIsNone(kept())

    def test_a_dry_run_tells_what_would_be_and_changes_nothing(self):
        model, punch = forming()
        before, journal, told = model.dump(), model.journal, []
        kept = model.on_change(told.append)
        with model.dry_run() as tried:
            punch.deactivate("Form")
            model.steps["Form"].rename("Last")
        self.assertEqual(tried.history.numpy().tolist(), [[0, 1, 4]])
        self.assertEqual((tried.history.steps[2], [found.id for found in tried.findings]), ("Last", ["GA018"]))  # nothing holds it there
        self.assertEqual((model.dump(), model.journal, told), (before, journal, []))
        kept.end()

    def test_a_callback_may_edit_and_what_it_raises_passes(self):
        model, punch = forming()
        told = []

        def callback(change):
            told.append(change.label)
            if len(told) == 1:
                punch["Form"].u3 = 3
            else:
                raise OSError("enough")

        kept = model.on_change(callback)
        with self.assertRaisesRegex(OSError, "enough"):
            punch["Form"].u1 = 1
        kept.end()
        self.assertEqual((punch["Form"].u1, punch["Form"].u3, len(told)), (1.0, 3.0, 2))

    def test_copies_and_pickles_go_their_own_way(self):
        model, punch = forming()
        for other in (model.copy(), copy.deepcopy(model), pickle.loads(pickle.dumps(model))):
            self.assertEqual(other.dump(), model.dump())
            other.boundary_conditions["Punch"].delete()
            self.assertRaises(gattr.Refused, lambda: [other.undo(), other.undo()])
        self.assertTrue(punch.exists)


class Tables(unittest.TestCase):
    def test_the_history_is_a_table_of_statuses_and_of_values(self):
        model = gattr.replay(ROOT / "examples" / "forming.jsonl")
        table = model.history()
        model.boundary_conditions["Punch"].delete()
        self.assertEqual(table.numpy().dtype, "uint8")
        self.assertEqual(table.shape, (len(table.attributes), len(table.steps)))
        self.assertRaises(ValueError, table.values, "u22")
        values, frame = table.values("u2"), table.frame()
        kinds = {"boundaryCondition": model.boundary_conditions, "fieldOutputRequest": model.field_outputs}
        for row, (kind, name) in enumerate(table.attributes):
            if name == "Punch" or kind not in kinds:
                continue
            attribute = kinds[kind][name]
            self.assertEqual(table.numpy()[row].tolist(), attribute.history())
            for column, step in enumerate(table.steps):
                self.assertEqual(frame.loc[(kind, name), step], attribute[step].status)
                value = getattr(attribute[step], "u2", None)
                self.assertTrue(math.isnan(values[row, column]) if value in (None, gattr.FREED) else values[row, column] == value)
        self.assertEqual(table.frame("u2").loc[("boundaryCondition", "Punch"), "Draw-1"], -12.0)
        self.assertTrue(table._repr_html_().startswith("<iframe"))
        self.assertIn("Punch", table._repr_html_())


class Files(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def path(self, name):
        return pathlib.Path(self.folder.name, name)

    def test_a_block_saves_where_it_ends_well(self):
        for name in ("m.gadb", "m.gattr.json", os.fsdecode(b"\xff.gadb")):
            model, _ = forming()
            self.assertRaises(ValueError, model.save)
            self.assertRaises(ValueError, model.__enter__)
            model.save(self.path(name))
            with gattr.open(self.path(name)) as opened:
                opened.boundary_conditions["Punch"]["Form"].u2 = -20
            with self.assertRaises(ZeroDivisionError), gattr.open(self.path(name)) as opened:
                opened.boundary_conditions["Punch"].delete()
                1 / 0
            again = gattr.open(self.path(name))
            self.assertEqual((again.path, again.boundary_conditions["Punch"]["Form"].u2), (str(self.path(name)), -20))
            self.assertRaises(gattr.Unreadable, model.save)  # somebody else has written it
            model.save(overwrite=True)
        self.assertRaises(gattr.Unreadable, gattr.open, self.path("none.gadb"))
        self.assertRaises(gattr.Unreadable, gattr.load, "{")
        self.assertRaises(gattr.Unreadable, gattr.open, "model.txt")
        self.assertRaises(gattr.Unreadable, gattr.replay, self.path("none.jsonl"))

    def test_a_replay_names_the_line_that_is_refused(self):
        self.path("j.jsonl").write_text('{"command": "StaticStep", "name": "A"}\n{"command": "StaticStep", "name": "A"}\n')
        with self.assertRaisesRegex(gattr.Refused, "j.jsonl, line 2: .*There is a step"):
            gattr.replay(self.path("j.jsonl"))

    def test_an_exception_in_a_progress_callback_cancels(self):
        model, punch = forming()
        for number in range(300):
            model.PinnedBC(name=f"Pin-{number}", createStepName="Form", region="Top")
        model.save(self.path("m.gadb"))
        punch.delete()
        told = []

        def stop(done, total):
            told.append(done)
            if done:
                raise KeyboardInterrupt

        for number in range(300):
            model.boundary_conditions[f"Pin-{number}"].suppress()
        for call in (lambda: model.save(progress=stop), lambda: gattr.open(self.path("m.gadb"), progress=stop),
                     lambda: gattr.replay(ROOT / "examples" / "forming.jsonl", progress=stop), lambda: model.check(progress=stop)):
            told.clear()
            self.assertRaises(KeyboardInterrupt, call)
            self.assertEqual((told[0], len(told)), (0, 2))
        self.assertIn("Punch", gattr.open(self.path("m.gadb")).boundary_conditions)
        model.save()

    def test_an_interrupt_cancels_a_long_replay(self):
        journal = self.path("long.jsonl")
        journal.write_text("".join(f'{{"command": "Set", "name": "S{i}"}}\n' for i in range(100000)))
        previous = signal.signal(signal.SIGALRM, signal.default_int_handler)
        signal.setitimer(signal.ITIMER_REAL, 0.05)
        try:
            self.assertRaises(KeyboardInterrupt, gattr.replay, journal)
        finally:
            signal.setitimer(signal.ITIMER_REAL, 0)
            signal.signal(signal.SIGALRM, previous)

    def test_a_model_that_is_busy_raises_in_other_threads_and_others_run(self):
        model, punch = forming()
        refused, entered, tried = [], threading.Event(), threading.Event()

        def progress(done, total):
            entered.set()
            tried.wait(10)

        saver = threading.Thread(target=lambda: model.save(self.path("m.gadb"), progress=progress))
        saver.start()
        entered.wait(10)
        for use in (lambda: punch["Form"].u2, lambda: punch.delete(), lambda: model.history(), lambda: model.check(),
                    lambda: model.dump()):
            try:
                use()
            except gattr.Busy as error:
                refused.append(error)
        other, _ = forming()
        tried.set()
        saver.join()
        self.assertEqual(len(refused), 5)
        made = []
        makers = [threading.Thread(target=lambda: made.append(forming()[0].dump())) for _ in range(4)]
        for maker in makers:
            maker.start()
        for maker in makers:
            maker.join()
        self.assertEqual(made, [model.dump()] * 4)
        self.assertEqual(other.dump(), model.dump())
        self.assertEqual(punch["Form"].u2, -12)


if __name__ == "__main__":
    unittest.main()
