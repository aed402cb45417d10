#include <limits>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "host/ScriptTesting.h"
#include "host/scripts/ScriptEngine.h"

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class ScriptEngineTest : public ::testing::Test {
 protected:
  FakeEnvironment environment_;
  std::unique_ptr<ScriptEngine> engine_ = CreateScriptEngine(environment_);

  /// Type and text of a value: a wrong type fails as a wrong value does.
  static std::string Shown(const Variant& value) {
    return std::string(VariantTypeName(value)) + " " + VariantToText(value);
  }
  std::string Evaluate(std::string_view expression) {
    try {
      return Shown(engine_->Evaluate(expression));
    } catch (const EScriptError& error) {
      return "line " + std::to_string(error.Line()) + ": " + error.what();
    }
  }
  std::string Run(std::string_view source, IVekActionScriptParams& params) {
    try {
      return Shown(engine_->Run(source, params));
    } catch (const EScriptError& error) {
      return "line " + std::to_string(error.Line()) + ": " + error.what();
    }
  }
  std::string Run(std::string_view source) { return Run(source, CreateActionScript("OnTest")->Params()); }

  static IVekActionScriptParams& Add(IVekActionScript& script, std::string_view name, ScriptParamKind kind,
                                     Variant value) {
    script.Params().AddParameter(name, kind);
    script.Params().ParameterByName(name).SetValue(std::move(value));
    return script.Params();
  }
};

}  // namespace

TEST_F(ScriptEngineTest, ExpressionsHaveTypedValues) {
  environment_.variables.Set("Name", std::string("Ada"));
  environment_.variables.Set("COUNT", int64_t{41});
  environment_.variables.Set("Ready", false);
  environment_.variables.Set("Ratio", 0.25);
  environment_.variables.Set("WHEN", TDateTime{39146.5});
  environment_.variables.Set("DATE", std::string("a date"));
  environment_.variables.Set("Math", std::string("hidden"));
  const struct {
    std::string_view expression, wanted;
  } cases[] = {
      {"1 + 1", "Integer 2"},
      {"1 / 4", "Float 0.25"},
      {"1e15", "Integer 1000000000000000"},
      {"-0", "Integer 0"},
      {"0 / 0", "Float NaN"},
      {"1 / 0", "Float Infinity"},
      {"1 < 2", "Boolean True"},
      {"var i = 2; 1<!--i", "Boolean False"},  // no comment
      {"'a' + 1", "String a1"},
      {"", "String "},
      {"undefined", "String "},
      {"null", "String "},
      {"[1, [2, 3]]", "String 1,2,3"},
      {"new Date(2007, 2, 5, 10, 30)", "DateTime 2007-03-05T10:30:00"},
      {"new Date(NaN)", "String Invalid Date"},
      {"var a = 2; a * a", "Integer 4"},
      // Variables, in any case and with their types; built-in names of exactly that spelling come first.
      {"name + '/' + NAME.length", "String Ada/3"},
      {"count + 1", "Integer 42"},
      {"!ready", "Boolean True"},
      {"ratio * 2", "Float 0.5"},
      {"When.getFullYear() + ':' + when.getHours()", "String 2007:12"},
      {"When", "DateTime 2007-03-05T12:00:00"},
      {"typeof Nothing", "String undefined"},
      {"DATE + typeof Date", "String a datefunction"},
      {"Math.max(1, 2)", "Integer 2"},
      {"Vek.GetVariable('math')", "String hidden"},
      {"eval('cou' + 'nt') + 1", "Integer 42"},
      {"[1, 2].map(function (x) { return x * count; }).join()", "String 41,82"},
      {"tfPutIntoVar + 1", "Integer 3"},
  };
  for (const auto& [expression, wanted] : cases) EXPECT_EQ(Evaluate(expression), wanted) << expression;
}

TEST_F(ScriptEngineTest, ErrorsCarryMessageAndLine) {
  const struct {
    std::string_view source, wanted;
  } cases[] = {
      {"1 +", "line 1: SyntaxError: "},
      {"\n\nvar = 3;", "line 3: SyntaxError: "},
      {"\nmissing.x", "line 2: ReferenceError: identifier 'missing' undefined"},
      {"function f() {\n  null.x;\n}\n\nf()", "line 2: TypeError: "},
      {"var a = {};\n\na.none();", "line 3: TypeError: undefined not callable"},
      {"\n\nthrow new Error('own')", "line 3: Error: own"},
      {"throw 'bare'", "line 0: bare"},
      {"throw {toString: function () { throw 1; }}", "line 0: the script failed"},
      {"\ndecodeURIComponent('%')", "line 2: URIError: "},
      {"\nVek.GetVariable('FOO')", "line 2: Error: unknown variable \"FOO\""},
      {"Vek.SetVariable('LOCKED', 1)", "line 1: Error: LOCKED cannot be set"},
      {"Vek.SetVariable('a%b', 1)", "line 1: Error: \"a%b\" is no variable name"},
      {"Vek.SetVariable('x y', 1)", "line 1: Error: \"x y\" is no variable name"},
      {"Vek.SetVariable('V', Vek.ActionByName('Act'))",
       "line 1: TypeError: a variable cannot hold an object"},
  };
  for (const auto& [source, wanted] : cases) {
    EXPECT_THAT(Run(source), StartsWith(wanted)) << source;
    EXPECT_THAT(Evaluate(source), StartsWith(wanted)) << source;
  }
  environment_.variables.Set("Out", int64_t{1});
  EXPECT_EQ(Evaluate("out = 2"), "line 1: TypeError: an expression cannot assign to \"out\"");
  EXPECT_THAT(Evaluate("undeclared = 2"), StartsWith("line 1: ReferenceError: "));
}

TEST_F(ScriptEngineTest, TextCrossesTheBorderUnharmed) {
  const struct {
    std::string_view text, expression, wanted;
  } cases[] = {
      {"ÄÖ €", "T.length + T.toLowerCase()", "String 4äö €"},
      {"\xF0\x9F\x98\x80", "T.length + ':' + T.charCodeAt(0).toString(16) + T",
       "String 2:d83d\xF0\x9F\x98\x80"},
      {"\xF0\x9F\x98\x80", "T.charAt(1) + '|' + T.charAt(0)", "String \xEF\xBF\xBD|\xEF\xBF\xBD"},
      {"", "'\xF0\x9F\x98\x80'.length + '\\ud83d' + '\\ude00'", "String 2\xF0\x9F\x98\x80"},
      {"", "String.fromCodePoint(0x1F600)", "String \xF0\x9F\x98\x80"},
      // Bytes that are not UTF-8 are single characters inside and the same bytes outside.
      {"\xFFtail\x80", "T.length + T", "String 6\xFFtail\x80"},
      {"\xED\xA0\x80", "T.length + T", "String 3\xED\xA0\x80"},
      {"cut \xE2\x82", "T + '|'", "String cut \xE2\x82|"},
      {std::string_view("a\0b", 3), "T.length", "Integer 3"},
  };
  for (const auto& [text, expression, wanted] : cases) {
    environment_.variables.Set("T", std::string(text));
    EXPECT_EQ(Evaluate(expression), wanted) << expression;
  }
}

TEST_F(ScriptEngineTest, InOutParametersAreReadBackWithTheTypeTheyThenHave) {
  const struct {
    Variant value;
    std::string_view source, wanted;
  } cases[] = {
      {std::string("abc"), "P = P.toUpperCase()", "String ABC"},
      {true, "P = !P", "Boolean False"},
      {int64_t{20}, "P += 1", "Integer 21"},
      {int64_t{20}, "P /= 8", "Float 2.5"},
      {true, "P = 'text'", "String text"},
      {true, "P = undefined", "String "},
      {true, "delete this.P", "String "},
      {true, "var P = 3", "Integer 3"},
      {TDateTime{39146}, "P.setHours(13)", "DateTime 2007-03-05T13:00:00"},
      {std::string("x"), "P = new Date(2020, 1, 29, 1, 2, 3)", "DateTime 2020-02-29T01:02:03"},
      {std::string("x"), "P = [1, 2]", "String 1,2"},
      // Left alone, a value keeps what a number of the engine could not hold.
      {int64_t{9007199254740993}, "1", "Integer 9007199254740993"},
      {2.0, "1", "Float 2"},
  };
  for (const auto& [value, source, wanted] : cases) {
    const auto script = CreateActionScript("OnTest");
    Run(source, Add(*script, "P", ScriptParamKind::InOut, value));
    EXPECT_EQ(Shown(script->Params().ParameterByName("P").Value()), wanted) << source;
  }
}

TEST_F(ScriptEngineTest, InParametersAndThoseOfAFailedScriptStayAsTheyWere) {
  const auto script = CreateActionScript("OnTest");
  Add(*script, "In", ScriptParamKind::In, std::string("in"));
  Add(*script, "Data", ScriptParamKind::InOut, std::string("data"));
  EXPECT_EQ(Run("In = 'changed'; Data = In + '!'; In", script->Params()), "String changed");
  EXPECT_EQ(Shown(script->Params().ParameterByName("In").Value()), "String in");
  EXPECT_EQ(Shown(script->Params().ParameterByName("Data").Value()), "String changed!");
  EXPECT_EQ(Run("Data = 'lost'; throw 'x'", script->Params()), "line 0: x");
  EXPECT_EQ(Shown(script->Params().ParameterByName("Data").Value()), "String changed!");
}

TEST_F(ScriptEngineTest, ObjectsAreReadWrittenAndCalledThroughTheirInterface) {
  environment_.action.members["Self"] = static_cast<IVekScriptObject*>(&environment_.action);
  const struct {
    std::string_view source, wanted;
  } cases[] = {
      {"Action.Count + 1", "Integer 4"},
      {"Action.count = 7.5; Action.Count", "Float 7.5"},
      {"Action.Title = Action.Title + '\\u00e9'; Action.title", "String firsté"},
      {"Action.Nothing", "String "},
      {"'Count' in Action && 'Reset' in Action && !('Nothing' in Action)", "Boolean True"},
      {"Action.Join(1, 'b', true, null, new Date(2007, 2, 5))", "String 1;b;True;;2007-03-05T00:00:00;"},
      {"var join = Action.Join; join(2)", "String 2;"},
      {"'' + Action", "String [object Object]"},
      {"Action.Self.Count", "Float 7.5"},
      {"Action", "Object "},
      {"Action.Nothing = 1", "line 1: TypeError: the object has no member \"Nothing\""},
      {"\nAction.Broken", "line 2: Error: the member is broken"},
      {"Action.Reset()", "line 1: Error: nothing to reset"},
      {"try { Action.Reset() } catch (e) { e.message }", "String nothing to reset"},
      {"Vek.ActionByName('act').Count", "Float 7.5"},
      {"Vek.ActionByName('other') === null", "Boolean True"},
  };
  const auto script = CreateActionScript("OnTest");
  Add(*script, "Action", ScriptParamKind::In, static_cast<IVekScriptObject*>(&environment_.action));
  for (const auto& [source, wanted] : cases) EXPECT_EQ(Run(source, script->Params()), wanted) << source;

  Run("Action.Join(Action)", script->Params());
  EXPECT_THAT(environment_.action.arguments, ElementsAre(Variant(&environment_.action)));
}

TEST_F(ScriptEngineTest, AnObjectKeptBeyondItsRunIsRefused) {
  const std::string_view source =
      "if (Array.kept) Array.kept.Count; else Array.kept = Vek.ActionByName('Act'), 0";
  EXPECT_EQ(Run(source), "Integer 0");
  EXPECT_EQ(Run(source), "line 1: TypeError: the object belongs to a script that has ended");
}

TEST_F(ScriptEngineTest, VekReachesVariablesAndTheLog) {
  EXPECT_EQ(Run("Vek.IsVariableDefined('New')"), "Boolean False");
  Run("Vek.SetVariable('New', 'a'); Vek.SetVariable('NUMBER', 3); Vek.SetVariable('Half', 0.5);"
      "Vek.SetVariable('When', new Date(2007, 2, 5)); Vek.SetVariable('List', [1, 2]);"
      "Vek.Log('saw ' + Vek.GetVariable('new')); Vek.Log(5)");
  EXPECT_EQ(Run("Vek.IsVariableDefined('new')"), "Boolean True");
  EXPECT_THAT(environment_.log, ElementsAre("saw a", "5"));
  std::string all;
  for (const auto& [name, value] : environment_.variables.All()) all += name + "=" + Shown(value) + ";";
  EXPECT_EQ(
      all, "Half=Float 0.5;List=String 1,2;New=String a;NUMBER=Integer 3;When=DateTime 2007-03-05T00:00:00;");
}

TEST_F(ScriptEngineTest, NothingThatOneScriptDefinesReachesAnother) {
  const std::string_view definitions[] = {
      "var leaked = 1",
      "leaked = 1",
      "function leaked() {}",
      "this.leaked = 1",
      "globalThis.leaked = 1",
      "Object.prototype.leaked = 1",
      "String.prototype.leaked = 1; Math.leaked = 1",
      "Object.defineProperty(this, 'leaked', {value: 1})",
      "Math = null; JSON.stringify = null; Array.prototype.push = null",
  };
  const std::string_view probe =
      "typeof leaked + typeof ''.leaked + typeof Math.leaked + JSON.stringify([1]) + [].push(1)";
  const std::string wanted = "String undefinedundefinedundefined[1]1";
  for (const std::string_view definition : definitions) {
    Run(definition);
    Evaluate(definition);
    EXPECT_EQ(Run(probe), wanted) << definition;
    EXPECT_EQ(Evaluate(probe), wanted) << definition;
  }
  const std::string_view again = "var n = (typeof n === 'undefined' ? 0 : n) + 1; n";
  EXPECT_EQ(Run(again), "Integer 1");
  EXPECT_EQ(Run(again), "Integer 1");
  // More scripts than realms are kept for.
  for (int i = 0; i < 40; ++i) EXPECT_EQ(Run("kept = " + std::to_string(i)), "Integer " + std::to_string(i));
  EXPECT_EQ(Run("typeof kept"), "String undefined");
}

TEST_F(ScriptEngineTest, ScriptsMayExtendBuiltInObjectsForThemselves) {
  EXPECT_EQ(Run("String.prototype.twice = function () { return this + this; }; 'ab'.twice()"), "String abab");
  EXPECT_EQ(Run("var JSON = JSON || {}; JSON.stringify({a: 1})"), "String {\"a\":1}");
}

TEST_F(ScriptEngineTest, NoWayLeadsOutOfTheEngine) {
  const std::string_view names[] = {"require",  "process", "print",   "alert", "load",
                                    "readFile", "Duktape", "fetch",   "CBOR",  "XMLHttpRequest",
                                    "std",      "os",      "console", "global"};
  for (const std::string_view name : names) {
    EXPECT_EQ(Run("typeof " + std::string(name)), "String undefined") << name;
    EXPECT_EQ(Evaluate("typeof " + std::string(name)), "String undefined") << name;
  }
  EXPECT_EQ(Run("typeof String.fromBufferRaw"), "String undefined");
  EXPECT_EQ(Run("Object.getOwnPropertyNames(Object.getPrototypeOf(this)).filter(function (n) {"
                "  return /compile|load|dump|gc|heap|act$|fin$/i.test(n); }).join()"),
            "String ");
}

TEST_F(ScriptEngineTest, AnInterruptedScriptEndsAndCannotGoOn) {
  for (const std::string_view source :
       {"while (true);", "while (true) try { while (true); } catch (e) {}",
        "try { while (true); } catch (e) { 1 }",
        "(function f() { try { f(); } finally { while (true); } })()",
        "[2, 1].sort(function () { while (true); })", "'' + {toString: function () { while (true); }}"}) {
    environment_.pollsLeft = 5;
    EXPECT_THAT(Run(source), HasSubstr("the script was interrupted")) << source;
    environment_.pollsLeft = 5;
    EXPECT_THAT(Evaluate(source), HasSubstr("the script was interrupted")) << source;
    environment_.pollsLeft = -1;
    EXPECT_EQ(Run("1 + 1"), "Integer 2");
    EXPECT_EQ(Evaluate("1 + 1"), "Integer 2");
  }
}

TEST_F(ScriptEngineTest, MemoryIsBounded) {
  engine_ = CreateScriptEngine(environment_, size_t{4} << 20);
  for (const std::string_view source :
       {"var a = []; while (true) a.push('x' + a.length)", "var s = 'x'; while (true) s += s",
        "'x'.repeat(1e9)", "var o = {}; while (true) o = {o: o}", "new Uint8Array(1e9)",
        "var a = []; function f() { a.push(a.join()); f(); } a.push('xxxxxxxx', 'y'); f()"}) {
    EXPECT_THAT(Run(source), HasSubstr("the script ran out of memory (limit 4 MB)")) << source;
    EXPECT_THAT(Evaluate(source), HasSubstr("the script ran out of memory (limit 4 MB)")) << source;
    EXPECT_EQ(Run("'x'.repeat(1000000).length"), "Integer 1000000");
  }
  EXPECT_EQ(Run("try { 'x'.repeat(1e9) } catch (e) { 'caught' }"), "String caught");
  engine_ = CreateScriptEngine(environment_, size_t{64} << 10);
  EXPECT_EQ(Evaluate("1"), "line 0: the script ran out of memory (limit 64 KB)");
}

TEST_F(ScriptEngineTest, DeepRecursionIsAnError) {
  for (const std::string_view source :
       {"function f() { f(); } f()", "var f = function () { [1].map(f); }; f()",
        "var a = []; a[0] = a; '' + a", "JSON.parse(Array(100000).join('['))",
        "eval(Array(100000).join('('))", "eval(Array(100000).join('!'))", "eval(Array(100000).join('{'))",
        "new RegExp(Array(100000).join('('))", "/^(x|y)*z/.test(Array(1000000).join('x'))",
        "var f = function () { return '' + {toString: f}; }; f()",
        "var f = function () { return new Proxy({}, {get: f}).x; }; f()"}) {
    EXPECT_THAT(Run(source), HasSubstr("RangeError: ")) << source;
  }
  std::string deep = "1";
  for (int i = 0; i < 20000; ++i) deep = "(" + deep + ")";
  EXPECT_THAT(Evaluate(deep), HasSubstr("recursion limit"));
}

TEST_F(ScriptEngineTest, AScriptMayMakeTheHostRunAnother) {
  environment_.nested = engine_.get();
  environment_.variables.Set("X", int64_t{2});
  Run("var x = 1; Vek.Log('x * 3'); if (x !== 1) throw 'changed'; Vek.Log('Vek.Log(\"x * 4\")')");
  EXPECT_THAT(environment_.log, ElementsAre("6", "8", ""));
  EXPECT_EQ(Run("Vek.Log('1 +')").substr(0, 21), "line 1: Error: Syntax");
  // A line that logs itself.
  environment_.variables.Set("ME", std::string("Vek.Log(me)"));
  EXPECT_THAT(Evaluate("Vek.Log(me)"), HasSubstr("scripts run each other too deeply"));
}

TEST(ScriptTruth, IsThatOfTheLanguage) {
  for (const Variant& value : {Variant(), Variant(std::string()), Variant(int64_t{0}), Variant(false),
                               Variant(0.0), Variant(std::numeric_limits<double>::quiet_NaN())}) {
    EXPECT_FALSE(IsTrue(value)) << value.index();
  }
  for (const Variant& value : {Variant(std::string("False")), Variant(int64_t{-1}), Variant(true),
                               Variant(0.5), Variant(TDateTime{})}) {
    EXPECT_TRUE(IsTrue(value)) << value.index();
  }
}
