#pragma once

#include <string>
#include <utility>
#include <vector>

#include "library/Export.h"

/// The record of one built-in function: its JavaScript, and what documentation says about it.
///
///     KxJsFunction round;
///     round.setName(u"ROUND");
///     round.addParameter({u"num", u"The value to round"});
///     round.setDescription(u"Rounds a float");
///     round.setReturnDescription(u"The rounded value");
///     round.setBody(u"return num.toFixed(2);");
///     round.addExample(u"ROUND(10.523) &rarr; 10.52");
///     std::u16string declaration = round.toJavaScript();
///
/// A record is a plain value: copies are independent. All texts are UTF-16. Descriptions and
/// examples are HTML.
///
/// The functions that set or add a text check it. If it is refused, they return false and the
/// record stays as it was. They do not parse the text. These are up to the caller, or the generated
/// JavaScript does not compile: the name and the parameter names are identifiers, the body is
/// JavaScript, and no description ends a comment with an asterisk and a slash.
///
/// Errors: std::bad_alloc only.
/// Threads: any thread may use a record, but only one at a time may change it.
class KXJS_API KxJsFunction {
  public:
    using Parameter = std::pair<std::u16string, std::u16string>;  ///< name and description

    /// Sets the name. Refused are an empty name and one with a letter a to z or white space.
    bool setName(std::u16string text);
    /// Sets the description. Refused are an empty text and one with "{": the built-in LISTFUNCT
    /// shows the text of a function up to its first "{", which has to be that of the body.
    bool setDescription(std::u16string text);
    /// Sets the description of the result. Refused is what setDescription() refuses.
    bool setReturnDescription(std::u16string text);
    /// Sets the body, without its braces. Refused are an empty text and one that begins with "{".
    bool setBody(std::u16string text);
    /// Appends a parameter. Refused are an empty name, an empty description and one with "{".
    bool addParameter(Parameter parameter);
    /// Appends an example. Refused are an empty text and one with "{".
    bool addExample(std::u16string text);
    /// Sets the title of the catalogue that the record belongs to. Any text is accepted.
    void setCategory(std::u16string text);

    /// Return the texts as they were set. A reference is valid until the text is set again, and as
    /// long as the record exists.
    /// @{
    std::u16string const& getName() const { return name_; }
    std::u16string const& getDescription() const { return description_; }
    std::u16string const& getReturnDescription() const { return returnDescription_; }
    std::u16string const& getBody() const { return body_; }
    std::vector<Parameter> const& getParameters() const { return parameters_; }
    std::vector<std::u16string> const& getExamples() const { return examples_; }
    std::u16string const& getCategory() const { return category_; }
    /// @}

    /// Returns whether the record has a name, both descriptions, a body and at least one example.
    /// Only complete records are installed in contexts, documented and listed.
    bool isComplete() const;

    /// Returns the JavaScript declaration of the function. It holds the documentation as a comment.
    /// If the function has parameters, a call without any argument throws a ReferenceError.
    std::u16string toJavaScript() const;

    /// Returns the documentation of the function as a block of HTML, to be put below others on one
    /// page. The examples are left out unless `withExample` is set. (Defined in `doc`.)
    std::u16string toHtmlFragment(bool withExample) const;

    /// Returns the documentation of the function, with its examples, as an HTML page of its own.
    /// (Defined in `doc`.)
    std::u16string toHtmlPage() const;

  private:
    std::u16string description_;
    std::u16string returnDescription_;
    std::u16string name_;
    std::u16string body_;
    std::vector<Parameter> parameters_;
    std::vector<std::u16string> examples_;
    std::u16string category_;
};
