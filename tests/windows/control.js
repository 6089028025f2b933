// The same door for the other language of scripts.

function tell(what, call) {
  try {
    WScript.Echo(what + ": " + call());
  } catch (error) {
    WScript.Echo(what + ": error " + (error.number >>> 0).toString(16));
  }
}

function padded(text) {
  var digits = "";
  for (var i = 0; i < text.length; ++i) digits += text.charCodeAt(i).toString(16).toUpperCase();
  while (digits.length < 64) digits += "20";
  return digits;
}

var none = "None";
function documentOf(control, a, b) {
  return control.DocXML(a, b, none, none, none, none, none, none, none, none, none, none, none, none, none, none, none,
                        none, none, none, none, none, none, none);
}

var control = new ActiveXObject("HTR60.UserCntrl");
var manager = new ActiveXObject("HTR60.SimulatedManager");
tell("document", function() { return documentOf(control, 1.25, "<>"); });
tell("other letters", function() { return documentOf(control, "\u20AC\uD834\uDD1E", "").indexOf("\"\u20AC\uD834\uDD1E\""); });
tell("document of three", function() { return control.DocXML(1, 2, 3); });
tell("factor", function() { return control.GetFactor1Unit("kPa"); });
tell("factor of nothing", function() { return control.GetFactor1Unit(); });
tell("factor of undefined", function() { return control.GetFactor1Unit(undefined); });
tell("factor of null", function() { return control.GetFactor1Unit(null); });
tell("unknown name", function() { return control.Nothing1(); });
tell("init with null", function() { return control.Init("js", "", null); });
tell("init", function() { return control.Init("js", "", manager); });
manager.Wait(2500);
tell("state", function() { return manager.LastAnswer(9000); });
tell("tag", function() { return /"PHYTag" value="(\w*)"/.exec(manager.LastAnswer(100))[1]; });
tell("write", function() { return manager.WriteRequest("1", documentOf(control, padded("J"), "00"), ""); });
tell("read", function() { return manager.ReadRequest("1", documentOf(control, none, none), ""); });
manager.Wait(200);
tell("tag", function() { return /"PHYTag" value="(\w*)"/.exec(manager.LastAnswer(100))[1]; });
tell("release", function() { return control.PrepareToRelease(); });
control = null;
manager = null;
CollectGarbage();
WScript.Echo("end");
