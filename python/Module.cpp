#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <sstream>

#include "command/Check.h"
#include "command/Explain.h"
#include "command/HistoryTable.h"
#include "command/InForce.h"
#include "command/Journal.h"
#include "command/Merge.h"
#include "command/Words.h"
#include "module/DDB_GeometricAttributes.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "python/Handles.h"
#include "python/Model.h"
#include "python/Values.h"
#include "python/Watch.h"
#include "report/HtmlReport.h"
#include "report/RenderHistory.h"
#include "store/StoreError.h"

namespace gattr::python {
namespace {

/// The histories of a model at one time. Names are looked up when somebody asks for them.
class History {
public:
  explicit History(ddr_Model model) : model_(std::move(model)) {}

  HistoryTable const& Table() {
    if (!table_) { table_ = HistoriesOf(model_); }
    return *table_;
  }
  /// Attributes and steps.
  std::pair<std::size_t, std::size_t> Shape() const {
    std::size_t rows = 0;
    for (auto const& [member, extension] : model_.Extensions()) {
      if (auto const* const attributes = mdl_ExtensionAs<kprC_StepAwareRepository>(extension.ConstGet())) { rows += attributes->Size(); }
    }
    return {rows, kprC_Steps(model_).Size()};
  }
  template <class T> std::span<T> Room(py::buffer const& buffer) const {
    py::buffer_info const info = buffer.request(true);
    auto const [rows, columns] = Shape();
    if (info.itemsize != sizeof(T) || static_cast<std::size_t>(info.size) != rows * columns) {
      throw py::value_error("a buffer of another size");
    }
    return {static_cast<T*>(info.ptr), rows * columns};
  }
  ddr_Model const& Of() const { return model_; }

private:
  ddr_Model model_;
  std::optional<HistoryTable> table_;
};

py::tuple AsTuple(Outcome const& outcome) {
  py::dict history;
  for (auto const& [name, statuses] : outcome.history) {
    py::list list;
    for (int const status : statuses) { list.append(Defined().statuses[static_cast<std::size_t>(status)]); }
    history[Text(name)] = list;
  }
  return py::make_tuple(outcome.changed, Text(outcome.message), history, Text(outcome.report), Told(outcome.effects));
}

/// Makes an object and gives its handle. None says "UNSET" for the members named by \p carried.
py::object Make(py::object const& self, std::string_view command, int kind, py::object const& name, py::dict const& arguments,
                py::frozenset const& carried) {
  cls_Value::Fields fields = {{"command", command}};
  fields.reserve(arguments.size() + 2);
  fields.emplace_back("name", ToValue(name));
  for (auto const& [argument, value] : arguments) {
    bool const unset = value.is_none() && carried.contains(argument);
    fields.emplace_back(TextOf(argument), unset ? cls_Value("UNSET") : ToValue(value));
  }
  self.cast<Model&>().Do(fields);
  return MakeHandle(self, kind, std::get<std::string>(ToValue(name).data));  // which the command has taken
}

py::list Rows(std::vector<Finding> const& found) {
  py::list findings;
  for (Finding const& finding : found) {
    FindingRow const& row = finding.Row();
    findings.append(py::make_tuple(Text(row.id), Text(SeverityText(row.severity)), Text(finding.kind), Text(finding.name),
                                   Text(finding.step), Text(finding.member), Text(finding.refusal.module), finding.refusal.code,
                                   Text(finding.refusal.message), Text(finding.detail), Text(finding.hint), finding.suppressed));
  }
  return findings;
}

/// Has a model become what two others have made of one; gives the conflicts and the findings.
py::tuple MergeInto(Model& model, Model& base, Model& ours, Model& theirs) {
  auto const dataOf = [](Model& one) {
    Model::Use const use(one);
    return one.Data();
  };
  Merged merged = Merge(dataOf(base), dataOf(ours), dataOf(theirs));
  py::list conflicts;
  for (MergeConflict const& conflict : merged.conflicts) {
    conflicts.append(py::make_tuple(Text(conflict.kind), Text(conflict.name), Text(conflict.step), Text(conflict.member),
                                    ToPython(conflict.base), ToPython(conflict.ours), ToPython(conflict.theirs), Text(conflict.Text())));
  }
  Model::Use const use(model, true);
  model.Commands() = Session(std::move(merged.model));
  return py::make_tuple(conflicts, Rows(merged.findings));
}

py::list Findings(Model& model, py::handle progress, py::handle disable, py::handle only) {
  FindingChoice choice;
  for (py::handle const id : disable) { choice.disable.emplace_back(TextOf(id)); }
  for (py::handle const id : only) { choice.only.emplace_back(TextOf(id)); }
  if (auto const refusal = RefusalBy([&] { choice.AssertValid(); })) { throw py::value_error(refusal->message); }
  Model::Use const use(model, true);
  std::vector<Finding> found;
  Watch watch(progress);
  watch.Run([&](Progress const& told) { found = Check(model.Data(), choice, told); });
  watch.Raise();
  return Rows(found);
}

void Report(Model& model, std::string const& path, py::handle progress) {
  Model::Use const use(model, true);
  Watch watch(progress);
  watch.Run([&](Progress const& told) { WriteHtmlReportFile(model.Data(), path, told); });
  watch.Raise();
}

/// What is in force, and the time that values are asked at.
struct TimedInForce {
  InForce walk;
  std::optional<AtTime> at;
};
std::optional<AtTime> Timed(ddr_Model const& model, std::optional<double> time) {
  return time ? std::optional<AtTime>(std::in_place, model, *time) : std::nullopt;
}

py::list StatusTexts() {
  py::list texts;
  for (unsigned i = 0; i < kStatusCount; ++i) { texts.append(Text(omu_EnumText(omu_EnumTable<mdl_PropagationStatusEnm>::rows, i).View())); }
  return texts;
}

void Define(py::dict const& definitions) {
  Definitions& defined = Defined();
  auto const take = [&](char const* name) { return py::object(definitions[name]); };
  defined.unset = take("unset");
  defined.freed = take("freed");
  for (std::size_t i = 0; i < defined.statuses.size(); ++i) { defined.statuses[i] = take("status")(i); }
  defined.handles = take("handles");
  defined.refused = take("refused");
  defined.gone = take("gone");
  defined.busy = take("busy");
  defined.unreadable = take("unreadable");
  defined.noAttribute = take("no_attribute");
  defined.change = take("change");
  defined.objectChange = take("object_change");
  defined.statusChange = take("status_change");
}

void BindDescriptions(py::module_& m) {
  py::class_<ArgumentInfo>(m, "Argument")
      .def_readonly("name", &ArgumentInfo::name)
      .def_readonly("meaning", &ArgumentInfo::meaning)
      .def_readonly("unit", &ArgumentInfo::unit)
      .def_readonly("permissible", &ArgumentInfo::permissible)
      .def_readonly("required", &ArgumentInfo::required)
      .def_property_readonly("kind",
                             [](ArgumentInfo const& info) {
                               ArgumentInfo alone = info;
                               alone.depth = 0;
                               return info.kind == ValueKind::Object ? std::string("object") : alone.Type();
                             })
      .def_readonly("depth", &ArgumentInfo::depth)
      .def_readonly("class_name", &ArgumentInfo::className)
      .def_readonly("refers", &ArgumentInfo::refers)
      .def_readonly("per_step", &ArgumentInfo::perStep)
      .def_readonly("again", &ArgumentInfo::again)
      .def_property_readonly("type", &ArgumentInfo::Type)
      .def_property_readonly("of_state", [](ArgumentInfo const& info) { return info.of == ArgumentOf::State; })
      .def_property_readonly("of_object", [](ArgumentInfo const& info) { return info.of == ArgumentOf::Object; })
      .def_property_readonly("preset", [](ArgumentInfo const& info) { return ToPython(info.preset); });
  py::class_<ClassInfo>(m, "Class").def_readonly("name", &ClassInfo::name).def_readonly("members", &ClassInfo::members);
  py::class_<KindInfo>(m, "Kind").def_readonly("kind", &KindInfo::kind).def_readonly("member", &KindInfo::member);
  py::class_<CommandInfo>(m, "Command")
      .def_readonly("name", &CommandInfo::name)
      .def_readonly("group", &CommandInfo::group)
      .def_readonly("meaning", &CommandInfo::meaning)
      .def_readonly("arguments", &CommandInfo::arguments)
      .def_readonly("makes", &CommandInfo::makes)
      .def_readonly("class_name", &CommandInfo::className)
      .def_readonly("kinds", &CommandInfo::kinds)
      .def_readonly("only_class", &CommandInfo::onlyClass)
      .def_property_readonly("members", [](CommandInfo const& info) {
        constexpr std::string_view kTexts[] = {"", "all", "state", "procedure"};
        return Text(kTexts[static_cast<std::size_t>(info.members)]);
      });
  m.def("commands", &Session::Commands);
  m.def("classes", &Session::ValueClasses);
  m.def("kinds", &Kinds);
  m.def("statuses", &StatusTexts);
  m.def("define", &Define);
}

void BindModel(py::module_& m) {
  py::class_<Subscription, std::shared_ptr<Subscription>>(m, "Token").def("end", &Subscription::End);
  py::class_<Model, std::shared_ptr<Model>>(m, "Model")
      .def(py::init<>())
      .def("_copy",
           [](Model& self, Model& from) {
             Model::Use const use(from), other(self, true);
             self.Commands() = Session(from.Data());
           })
      .def("_open", &Model::Open)
      .def("_replay", &Model::Replay)
      .def("_save", &Model::Save)
      .def("_load", &Model::Load)
      .def("_make", &Make)
      .def("_effects",
           [](Model& self) {
             Model::Use const use(self);
             return Told(self.Commands().EffectsSinceBegin());
           })
      .def("_execute", [](Model& self, py::handle command) { return AsTuple(self.Do(ToValue(command))); })
      .def("_names",
           [](Model& self, int kind) {
             Model::Use const use(self);
             return self.Names(kind);
           })
      .def("_has",
           [](Model& self, int kind, py::handle name) {
             Model::Use const use(self);
             return PyUnicode_Check(name.ptr()) && self.Find(kind, TextOf(name)) != nullptr;
           })
      .def("_handle",
           [](py::object const& self, int kind, py::handle name) {
             Model::Use const use(self.cast<Model&>());
             return MakeHandle(self, kind, TextOf(name));
           })
      .def("_history",
           [](Model& self) {
             Model::Use const use(self);
             return History(self.Data());
           })
      .def("_check", &Findings)
      .def("_report", &Report)
      .def("_attribute",
           [](py::object const& self, std::string_view name) {
             Model::Use const use(self.cast<Model&>());
             FoundAttribute const found = FindAttribute(self.cast<Model&>().Data(), name);
             return MakeHandle(self, KindNumber(found.family->ItemCmd()), found.item->Name().View());
           })
      .def("_in_force",
           [](Model& self, py::handle step, bool still, std::optional<double> at) {
             Model::Use const use(self);
             InForce::Options options;
             options.still = still;
             if (!step.is_none()) { options.first = options.last = FindStep(self.Data(), TextOf(step)); }
             return TimedInForce{InForce(self.Data(), options), Timed(self.Data(), at)};
           })
      .def("_begin", &Model::Begin)
      .def("_commit", &Model::Commit)
      .def("_rollback", &Model::Rollback)
      .def("_branch",
           [](Model& self, std::string const& name) {
             Model::Use const use(self);
             self.Commands().Branch(name);
           })
      .def("_switch",
           [](Model& self, std::string const& name) {
             Model::Use const use(self);
             self.Commands().Switch(name);
           })
      .def("_delete_branch",
           [](Model& self, std::string const& name) {
             Model::Use const use(self);
             self.Commands().DeleteBranch(name);
           })
      .def("_branches",
           [](Model& self) {
             Model::Use const use(self);
             py::list names;
             for (std::string const& name : self.Commands().Branches()) { names.append(Text(name)); }
             return py::make_tuple(names, Text(self.Commands().CurrentBranch()));
           })
      .def("_compare",
           [](Model& self, std::string const& name, std::string const& other) {
             Model::Use const use(self);
             return Told(self.Commands().Compare(name, other));
           })
      .def("_differences",
           [](Model& self, Model& other) {
             Model::Use const use(self), also(other);
             return Told(DifferencesBetween(self.Data(), other.Data()));
           })
      .def("_merge", &MergeInto)
      .def("_on_change", &Model::OnChange)
      .def_property_readonly(
          "path", [](Model const& self) { return self.Path().empty() ? py::object(py::none()) : FileText(self.Path()); },
          "Where the model was opened or saved last; None where it was not.")
      .def_property_readonly(
          "name",
          [](Model& self) {
            Model::Use const use(self);
            return Text(self.Data().Name().View());
          },
          "The model's name, which setModel gives.")
      .def_property_readonly(
          "space",
          [](Model& self) {
            Model::Use const use(self);
            return Text(omu_EnumText(omu_EnumTable<ddr_ModelSpaceEnm>::rows, static_cast<unsigned>(self.Data().Space())).View());
          },
          "The space that the model lives in, which setModelSpace says.")
      .def_property_readonly(
          "journal",
          [](Model& self) {
            Model::Use const use(self);
            py::list commands;
            for (cls_Value const& command : self.Commands().Journal()) { commands.append(ToPython(command)); }
            return commands;
          },
          "The commands that succeeded, undo and redo among them; replaying them gives this model.")
      .def("_dump", [](Model& self) { return Text(self.Dump()); });
}

/// The attribute that a handle means.
FoundAttribute Found(Handle const& handle) {
  static_cast<void>(handle.Get());  // refuses one that is gone
  return FindAttribute(handle.In().Data(), Kinds()[static_cast<std::size_t>(handle.Kind())].kind, handle.Name());
}

void BindHandles(py::module_& m) {
  py::class_<Handle>(m, "Handle")
      .def(py::init<py::object, int, std::string_view>())
      .def_property_readonly(
          "name", [](Handle const& self) { return Text(self.Name()); }, "What the object is called now.")
      .def_property_readonly(
          "model", [](Handle const& self) { return self.Owner(); }, "The model that it is of.")
      .def_property_readonly("exists", &Handle::Exists, "Whether there is such an object now.")
      .def_property_readonly(
          "kind", [](Handle const& self) { return Text(Kinds()[static_cast<std::size_t>(self.Kind())].kind); },
          "What commands call its kind.")
      .def("__getattr__", &Handle::Member)
      .def("__setattr__", &Handle::SetMember)
      .def("_in",
           [](Handle const& self, py::handle step) {
             if (py::isinstance<Handle>(step)) { return State(self, step.cast<Handle const&>().Name()); }
             return State(self, TextOf(step));
           })
      .def("_members", &Handle::MemberNames)
      .def("_do", [](Handle const& self, std::string_view command, py::dict const& arguments) { return Text(self.Do(command, arguments)); })
      .def("_again", [](Handle const& self,
                        py::handle name) { return MakeHandle(self.Owner(), self.Kind(), std::get<std::string>(ToValue(name).data)); })
      .def("_command",
           [](Handle const& self) {
             Model::Use const use(self.In());
             kprC_StepDependent const* const attribute = self.Attribute();
             return Text(attribute == nullptr ? "" : attribute->ConstructionName());
           })
      .def("_suppressed",
           [](Handle const& self) {
             Model::Use const use(self.In());
             return self.Attribute()->IsSuppressed();
           })
      .def("_statuses",
           [](Handle const& self) {
             Model::Use const use(self.In());
             py::list statuses;
             for (mdl_PropagationStatusEnm const status : self.Attribute()->History()) {
               statuses.append(Defined().statuses[static_cast<std::size_t>(status)]);
             }
             return statuses;
           })
      .def("_show",
           [](Handle const& self, std::optional<double> time) {
             Model::Use const use(self.In());
             std::optional<AtTime> const at = Timed(self.In().Data(), time);
             return ToPython(ValueOf(Found(self), at ? &*at : nullptr));
           })
      .def("_explain",
           [](Handle const& self, std::string_view step, std::string_view member) {
             Model::Use const use(self.In());
             FoundAttribute const attribute = Found(self);
             return ToPython(ValueOf(Explain(attribute, FindStep(self.In().Data(), step), member), attribute.item->Steps()));
           })
      .def("__eq__",
           [](Handle const& self, py::handle other) { return py::isinstance<Handle>(other) && self == other.cast<Handle const&>(); })
      .def("__hash__", &Handle::Hash);

  py::class_<State>(m, "State", "What an attribute says in a step.")
      .def_property_readonly("status", &State::Status, "What the attribute does in the step.")
      .def_property_readonly(
          "step", [](State const& self) { return Text(self.Step()); }, "The step's name.")
      .def("__getattr__", &State::Member)
      .def("__setattr__", &State::SetMember)
      .def("__dir__",
           [](State const& self) {
             std::vector<std::string> names = self.Of().MemberNames(true);
             names.insert(names.end(), {"status", "step"});
             return names;
           })
      .def("__repr__", [](State const& self) { return Text("<what \"" + self.Of().Name() + "\" says in \"" + self.Step() + "\">"); });
}

void BindInForce(py::module_& m) {
  py::class_<TimedInForce>(m, "InForce").def("next", [](TimedInForce& self) {
    InForceAttribute const* const told = self.walk.Next();
    return told == nullptr ? py::object(py::none()) : ToPython(ValueOf(*told, self.at ? &*self.at : nullptr));
  });
}

void BindHistory(py::module_& m) {
  py::class_<History>(m, "History")
      .def_property_readonly("shape", &History::Shape, "The number of attributes and that of steps.")
      .def_property_readonly(
          "steps",
          [](History& self) {
            py::list names;
            for (auto const& step : self.Table().steps) { names.append(Text(step.name)); }
            return names;
          },
          "The names of the steps, a column each.")
      .def_property_readonly(
          "attributes",
          [](History& self) {
            py::list names;
            for (auto const& row : self.Table().rows) { names.append(py::make_tuple(Text(row.kind), Text(row.name))); }
            return names;
          },
          "Kind and name of the attributes, a row each.")
      .def("_fill", [](History& self, py::buffer const& buffer) { FillStatuses(self.Of(), self.Room<std::uint8_t>(buffer)); })
      .def("_fill_values", [](History& self, std::string_view member,
                              py::buffer const& buffer) { FillValues(self.Of(), member, self.Room<double>(buffer)); })
      .def(
          "html",
          [](History& self) {
            std::ostringstream out;
            RenderHtml(out, self.Table());
            return Text(out.view());
          },
          "A page that stands alone.")
      .def("__str__", [](History& self) {
        std::ostringstream out;
        RenderText(out, self.Table(), {});
        return Text(out.view());
      });
}

}  // namespace
}  // namespace gattr::python

PYBIND11_MODULE(_gattr, m) {      // NOLINT
  using namespace gattr::python;  // NOLINT(google-build-using-namespace)
  static int started = 0;
  DDB_GeometricAttributes_initialize(started);
  py::register_exception_translator([](std::exception_ptr raised) {
    try {
      if (raised) { std::rethrow_exception(raised); }
    } catch (gattr::StoreError const& error) {
      PyErr_SetObject(Defined().unreadable.ptr(), FileText(error.what()).ptr());
    } catch (gattr::UnknownName const& error) {
      PyErr_SetObject(Defined().gone.ptr(), Text(error.what()).ptr());
    } catch (gattr::JournalError const& error) { PyErr_SetObject(Defined().unreadable.ptr(), FileText(error.what()).ptr()); }
  });
  BindDescriptions(m);
  BindModel(m);
  BindHandles(m);
  BindHistory(m);
  BindInForce(m);
}
