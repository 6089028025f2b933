#pragma once

#include <string>
#include <utility>
#include <vector>

namespace htr60 {

/// What becomes of a document.
enum class Verdict {
  kTaken,
  kRefused,
  /// The reader that the system brings knows namespaces, and refuses a prefix that nothing binds.
  kUnboundPrefix,
  /// It also refuses more than 256 levels.
  kTooDeep,
};

/// Whether the reader of Windows takes it.
inline bool TakenOnWindows(Verdict verdict) { return verdict == Verdict::kTaken; }
/// Whether expat takes it.
inline bool TakenElsewhere(Verdict verdict) { return verdict != Verdict::kRefused; }

struct XmlDocument {
  std::string name;
  std::string text;
  Verdict verdict = Verdict::kRefused;
};

/// Documents for every reader of XML there is, with what becomes of them. `element` stands in each that may be taken,
/// as the first child of the root.
class XmlDocuments {
 public:
  XmlDocuments(std::string root, std::string element)
      : root_(std::move(root)), element_(std::move(element)), plain_(In("")) {
    AddDeclarations();
    AddProlog();
    AddDoctypes();
    AddCharacters();
    AddReferences();
    AddMarkup();
    AddAttributes();
    AddNamespaces();
    AddNesting();
    AddEnds();
  }

  auto begin() const { return documents_.begin(); }
  auto end() const { return documents_.end(); }

 private:
  static constexpr Verdict kTaken = Verdict::kTaken;
  static constexpr Verdict kRefused = Verdict::kRefused;

  /// The root with the element and what follows it.
  std::string In(const std::string& content) const {
    return "<" + root_ + ">" + element_ + content + "</" + root_ + ">";
  }
  /// The same with attributes of the root.
  std::string With(const std::string& attributes, const std::string& content = "") const {
    return "<" + root_ + " " + attributes + ">" + element_ + content + "</" + root_ + ">";
  }
  void Add(std::string name, std::string text, Verdict verdict) {
    documents_.push_back({std::move(name), std::move(text), verdict});
  }

  void AddDeclarations() {
    Add("plain", plain_, kTaken);
    Add("declaration", "<?xml version='1.0'?>" + plain_, kTaken);
    Add("encoding of the text", "<?xml version='1.0' encoding='UTF-8'?>" + plain_, kTaken);
    Add("encoding that is not applied", "<?xml version='1.0' encoding='UTF-16'?>" + plain_, kTaken);
    Add("encoding of one byte a character", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + In("\xC3\xA4"), kTaken);
    Add("encoding of the frame's world", "<?xml version='1.0' encoding='windows-1252' ?>" + plain_, kTaken);
    Add("encoding that nobody knows", "<?xml version='1.0' encoding='x-nobody.1_2'?>" + plain_, kTaken);
    Add("encoding with blanks round its mark", "<?xml version = '1.0'\n encoding = 'UTF-16' ?>" + plain_, kTaken);
    Add("encoding and standalone", "<?xml version='1.0' encoding='UTF-16' standalone='yes'?>" + plain_, kTaken);
    Add("standalone", "<?xml version='1.0' standalone='no'?>" + plain_, kTaken);
    Add("empty encoding", "<?xml version='1.0' encoding=''?>" + plain_, kRefused);
    Add("encoding that is no name", "<?xml version='1.0' encoding='UTF 8'?>" + plain_, kRefused);
    Add("encoding in no quotes", "<?xml version='1.0' encoding=UTF-8?>" + plain_, kRefused);
    Add("encoding twice", "<?xml version='1.0' encoding='UTF-8' encoding='UTF-8'?>" + plain_, kRefused);
    Add("encoding first", "<?xml encoding='UTF-8' version='1.0'?>" + plain_, kRefused);
    Add("encoding alone", "<?xml encoding='UTF-8'?>" + plain_, kRefused);
    Add("encoding after standalone", "<?xml version='1.0' standalone='yes' encoding='UTF-8'?>" + plain_, kRefused);
    Add("encoding without a blank before", "<?xml version='1.0'encoding='UTF-8'?>" + plain_, kRefused);
    Add("standalone neither yes nor no", "<?xml version='1.0' standalone='maybe'?>" + plain_, kRefused);
    Add("declaration without version", "<?xml?>" + plain_, kRefused);
    Add("declaration that does not end", "<?xml version='1.0'" + plain_, kRefused);
    Add("declaration with something else", "<?xml version='1.0' other='1'?>" + plain_, kRefused);
    Add("declaration after a blank", " <?xml version='1.0'?>" + plain_, kRefused);
    Add("declaration after a comment", "<!-- x --><?xml version='1.0'?>" + plain_, kRefused);
    Add("two declarations", "<?xml version='1.0'?><?xml version='1.0'?>" + plain_, kRefused);
    Add("declaration inside", In("<?xml version='1.0'?>"), kRefused);
    Add("declaration in capitals", "<?XML version='1.0'?>" + plain_, kRefused);
    Add("instruction of that name inside", In("<?XmL x?>"), kRefused);
  }

  void AddProlog() {
    Add("mark of the byte order", "\xEF\xBB\xBF" + plain_, kTaken);
    Add("mark of the byte order and declaration", "\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8'?>" + plain_,
        kTaken);
    Add("two marks of the byte order", "\xEF\xBB\xBF\xEF\xBB\xBF" + plain_, kRefused);
    Add("mark of the byte order inside", In("\xEF\xBB\xBF"), kTaken);
    Add("blanks before", "\r\n\t " + plain_, kTaken);
    Add("blanks after", plain_ + " \t\r\n", kTaken);
    Add("comments before and after", "<!-- <x> & --><!---->" + plain_ + "<!-- y -->", kTaken);
    Add("instructions before and after", "<?xml-stylesheet href='x'?><?y?>" + plain_ + "<?z <!DOCTYPE A> ?>", kTaken);
    Add("text before the root", "x" + plain_, kRefused);
    Add("reference before the root", "&#32;" + plain_, kRefused);
    Add("CDATA before the root", "<![CDATA[ ]]>" + plain_, kRefused);
    Add("end before the root", "</" + root_ + ">" + plain_, kRefused);
    Add("empty", "", kRefused);
    Add("blank", "   ", kRefused);
    Add("comment alone", "<!-- x -->", kRefused);
    Add("declaration alone", "<?xml version='1.0'?>", kRefused);
  }

  void AddDoctypes() {
    const std::string type = "<!DOCTYPE " + root_;
    Add("DOCTYPE", type + ">" + plain_, kRefused);
    Add("DOCTYPE behind a declaration", "<?xml version='1.0'?>\n" + type + ">" + plain_, kRefused);
    Add("DOCTYPE behind a comment", "<!-- > -->" + type + ">" + plain_, kRefused);
    Add("DOCTYPE behind an instruction", "<?x <A> ?>" + type + ">" + plain_, kRefused);
    Add("DOCTYPE behind many", " <!--a--> <?b?>\n<!--<A/>--> " + type + " >" + plain_, kRefused);
    Add("DOCTYPE behind a mark of the byte order", "\xEF\xBB\xBF" + type + ">" + plain_, kRefused);
    Add("DOCTYPE of an outer file", type + " SYSTEM 'file:///etc/passwd'>" + plain_, kRefused);
    Add("DOCTYPE in small letters", "<!doctype " + root_ + ">" + plain_, kRefused);
    Add("DOCTYPE after the root", plain_ + type + ">", kRefused);
    Add("DOCTYPE inside", In(type + ">"), kRefused);
    Add("inner entity", type + " [<!ENTITY e 'x'>]>" + In("&e;"), kRefused);
    Add("outer entity", type + " [<!ENTITY e SYSTEM 'file:///etc/passwd'>]>" + In("&e;"), kRefused);
    Add("entities that grow", type + " [<!ENTITY a 'xx'><!ENTITY b '&a;&a;'>]>" + In("&b;"), kRefused);
    Add("declaration of an element", "<!ELEMENT " + root_ + " ANY>" + plain_, kRefused);
  }

  void AddCharacters() {
    Add("letters of other alphabets", In("\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E"), kTaken);
    Add("letters of other alphabets in names", In("<\xC3\x84\xD0\x96 \xC3\xA4='\xE2\x82\xAC'/>"), kTaken);
    Add("ends of lines", In("a\r\nb\rc\nd\te"), kTaken);
    Add("delete and next line", In("\x7F\xC2\x85"), kTaken);
    Add("control character", In("\x01"), kRefused);
    Add("form feed", In("\x0C"), kRefused);
    Add("control character in a value", With("x='\x1F'"), kRefused);
    Add("NUL", In(std::string(1, '\0')), kRefused);
    Add("NUL first", std::string(1, '\0') + plain_, kRefused);
    Add("NUL after the root", plain_ + std::string(1, '\0'), kRefused);
    Add("NUL and more after the root", plain_ + std::string(1, '\0') + "<x", kRefused);
    Add("NUL in a value", With("x='" + std::string(1, '\0') + "'"), kRefused);
    Add("broken UTF-8", In("\xC3\x28"), kRefused);
    Add("overlong UTF-8", In("\xC0\xAF"), kRefused);
    Add("UTF-8 beyond the last character", In("\xF4\x90\x80\x80"), kRefused);
    Add("half of a pair", In("\xED\xA0\x80"), kRefused);
    Add("pair of two halves", In("\xED\xA0\x80\xED\xB0\x80"), kRefused);
    Add("UTF-8 that is cut off", plain_ + "\xE2\x82", kRefused);
    Add("no character FFFE", In("\xEF\xBF\xBE"), kRefused);
    Add("no character FFFF", In("\xEF\xBF\xBF"), kRefused);
  }

  void AddReferences() {
    Add("predefined entities", With("x='&lt;&quot;&apos;'", "&amp;&lt;&gt;&quot;&apos;"), kTaken);
    Add("references", In("&#9;&#65;&#x42;&#xD7FF;&#x10FFFF;"), kTaken);
    Add("unknown entity", In("&nbsp;"), kRefused);
    Add("unknown entity in a value", With("x='&nbsp;'"), kRefused);
    Add("bare ampersand", In("a & b"), kRefused);
    Add("bare ampersand in a value", With("x='a&b'"), kRefused);
    Add("entity without its end", In("&amp "), kRefused);
    Add("reference to NUL", In("&#0;"), kRefused);
    Add("reference to a control character", In("&#1;"), kRefused);
    Add("reference to half of a pair", In("&#xD800;"), kRefused);
    Add("reference to no character", In("&#xFFFE;"), kRefused);
    Add("reference beyond the last character", In("&#x110000;"), kRefused);
    Add("reference beyond every number", In("&#99999999999999999999;"), kRefused);
    Add("reference without digits", In("&#;"), kRefused);
    Add("reference with a capital X", In("&#X41;"), kRefused);
  }

  void AddMarkup() {
    Add("comment", In("<!-- <x> & -->"), kTaken);
    Add("comment with two dashes", In("<!-- a -- b -->"), kRefused);
    Add("comment with three dashes at its end", In("<!-- a --->"), kRefused);
    Add("comment that does not end", In("<!-- a "), kRefused);
    Add("CDATA", In("<![CDATA[<&]] >]]>"), kTaken);
    Add("CDATA that does not end", In("<![CDATA[ x"), kRefused);
    Add("end of a CDATA alone", In("]]>"), kRefused);
    Add("CDATA in small letters", In("<![cdata[x]]>"), kRefused);
    Add("instruction", In("<?x y='<'?>"), kTaken);
    Add("instruction without a name", In("<? x?>"), kRefused);
    Add("instruction that does not end", In("<?x y"), kRefused);
    Add("blanks in tags", "<" + root_ + "\n>" + element_ + "<B /></" + root_ + "\t>", kTaken);
    Add("blank before a name", In("< B/>"), kRefused);
    Add("blank before the name of an end", In("<B></ B>"), kRefused);
    Add("blank in an end", In("<B/ >"), kRefused);
    Add("digit first in a name", In("<1/>"), kRefused);
    Add("no name", In("<>"), kRefused);
    Add("less-than alone", In("a < b"), kRefused);
    Add("greater-than alone", In("a > b"), kTaken);
    Add("attribute in an end", In("<B></B x='1'>"), kRefused);
  }

  void AddAttributes() {
    Add("attributes", With("x=\"'\" y='\"' z = ''"), kTaken);
    Add("line ends in a value", With("x='a\r\n\tb'"), kTaken);
    Add("long value", With("x='" + std::string(200000, 'x') + "'"), kTaken);
    Add("doubled attribute", With("x='1' x='2'"), kRefused);
    Add("unquoted attribute", With("x=1"), kRefused);
    Add("attribute without value", With("x"), kRefused);
    Add("attribute without a mark", With("x '1'"), kRefused);
    Add("attribute without a name", With("='1'"), kRefused);
    Add("attributes without a blank between", With("x='1'y='2'"), kRefused);
    Add("less-than in a value", With("x='<'"), kRefused);
    Add("value that does not end", With("x='1"), kRefused);
    Add("quotes that differ", With("x='1\""), kRefused);
  }

  void AddNamespaces() {
    Add("bound prefix", With("xmlns:p='urn:p'", "<p:B p:x='1'/>"), kTaken);
    Add("prefix bound where it is used", In("<p:B xmlns:p='urn:p' p:x='1'/>"), kTaken);
    Add("namespace without prefix", With("xmlns='urn:p'"), kTaken);
    Add("prefix that is always bound", With("xml:lang='en'"), kTaken);
    Add("unbound prefix of an element", In("<p:B/>"), Verdict::kUnboundPrefix);
    Add("unbound prefix of an attribute", With("p:x='1'"), Verdict::kUnboundPrefix);
    Add("prefix bound elsewhere", In("<B xmlns:p='urn:p'/><p:B/>"), Verdict::kUnboundPrefix);
  }

  std::string Nested(int levels) const {
    std::string opened;
    std::string closed;
    for (int level = 1; level < levels; ++level) {
      opened += "<B>";
      closed += "</B>";
    }
    return In(opened + closed);
  }

  void AddNesting() {
    Add("256 levels", Nested(256), kTaken);
    Add("257 levels", Nested(257), Verdict::kTooDeep);
    Add("10000 levels", Nested(10000), Verdict::kTooDeep);
    Add("many beside each other", In([] {
          std::string many;
          for (int i = 0; i < 2000; ++i) many += "<B><C/></B>";
          return many;
        }()),
        kTaken);
  }

  void AddEnds() {
    Add("two roots", plain_ + "<B/>", kRefused);
    Add("text after the root", plain_ + "x", kRefused);
    Add("CDATA after the root", plain_ + "<![CDATA[ ]]>", kRefused);
    Add("reference after the root", plain_ + "&#32;", kRefused);
    Add("end after the root", plain_ + "</" + root_ + ">", kRefused);
    Add("open tag after the root", plain_ + "<", kRefused);
    Add("unclosed", "<" + root_ + ">" + element_, kRefused);
    Add("cut in a tag", "<" + root_ + ">" + element_ + "<B x=\"", kRefused);
    Add("cut in the last tag", plain_.substr(0, plain_.size() - 1), kRefused);
    Add("wrong nesting", In("<B><C></B></C>"), kRefused);
    Add("end of another name", "<" + root_ + ">" + element_ + "</" + root_ + "x>", kRefused);
    Add("end of a name in other letters", In("<B></b>"), kRefused);
  }

  std::string root_;
  std::string element_;
  std::string plain_;
  std::vector<XmlDocument> documents_;
};

}  // namespace htr60
