#pragma once

#include <string>
#include <utility>
#include <vector>

#include "library/Export.h"

/// One built-in function: what formulas call, what the engine runs and what users read.
///
/// A record is a plain value. The writing operations check what is said beside each of them and
/// return false, leaving the record as it was, where it does not hold. They are no parser: that no
/// text holds the end of a comment, an asterisk and a slash, that names are identifiers and that
/// the body is JavaScript is up to the caller, or the generated text does not compile:
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
/// Errors: std::bad_alloc only.
/// Threads: a record may be used by any thread, by one at a time; reading concurrently is fine.
class KXJS_API KxJsFunction {
  public:
    using Parameter = std::pair<std::u16string, std::u16string>;  ///< name, description

    /// Accepts a non-empty name without lower-case letters a to z and without white space.
    bool setName(std::u16string text);
    /// Accepts a non-empty text without "{": the function listing cuts a function's text at its
    /// first brace, so none may stand before the body's.
    bool setDescription(std::u16string text);
    /// Accepts what setDescription accepts.
    bool setReturnDescription(std::u16string text);
    /// Accepts a non-empty text that does not begin with "{". Later braces are allowed.
    bool setBody(std::u16string text);
    /// Accepts a non-empty name and a non-empty description without "{"; appends.
    bool addParameter(Parameter parameter);
    /// Accepts a non-empty text without "{"; appends.
    bool addExample(std::u16string text);
    /// Stores the title of the catalogue that the record belongs to. Any text is accepted.
    void setCategory(std::u16string text);

    /// Each returns a field as it was stored. The reference lives as long as the record and is
    /// valid until the field is next written.
    /// @{
    std::u16string const& getName() const { return name; }
    std::u16string const& getDescription() const { return description; }
    std::u16string const& getReturnDescription() const { return returnDescription; }
    std::u16string const& getBody() const { return body; }
    std::vector<Parameter> const& getParameters() const { return parameters; }
    std::vector<std::u16string> const& getExamples() const { return examples; }
    std::u16string const& getCategory() const { return category; }
    /// @}

    /// Whether the record has a name, both descriptions, a body and at least one example. Only
    /// complete records are installed, documented and listed.
    bool isComplete() const;

    /// The JavaScript declaration of the function, with its documentation comment and a guard
    /// that refuses a call without any argument when the function has parameters.
    std::u16string toJavaScript() const;

    /// The function's documentation as a block to be stacked with others on one page.
    std::u16string toHtmlFragment(bool withExample) const;

    /// The function's documentation as a complete page with its own style sheet.
    std::u16string toHtmlPage() const;

  private:
    std::u16string description;
    std::u16string returnDescription;
    std::u16string name;
    std::u16string body;
    std::vector<Parameter> parameters;
    std::vector<std::u16string> examples;
    std::u16string category;
};
