#include "doc/HtmlText.h"
#include "doc/Template.h"
#include "library/KxJsFunction.h"

namespace {

using kx::fill;
using kx::withLineBreaks;

constexpr std::u16string_view fragmentTemplate =
    uR"html(
<div style='margin-bottom:10px;' id='{{name}}'>
	<b>{{name}}({{parameter names}})</b><br/>
	<i>{{description}}</i><br/>
{{parameters}}
	<span style='color:green;'>&larr; Return</span> {{return description}}<br/>
{{examples}}
</div>
)html";

constexpr std::u16string_view parameterTemplate =
    uR"html(
	<span style='color:purple;'>&rarr; Parameter</span> {{name}} = {{description}}<br/>
)html";

constexpr std::u16string_view examplesTemplate =
    uR"html(
	<i>Example :</i>
	<div style='margin-left:22px;'>
{{examples}}
	</div>
)html";

constexpr std::u16string_view exampleTemplate =
    uR"html(
		{{example}}<br/>
)html";

std::u16string parameterLines(KxJsFunction const& function) {
    std::u16string lines;
    for (auto const& [name, description] : function.getParameters()) {
        lines += fill(parameterTemplate,
                      {{u"name", name}, {u"description", withLineBreaks(description)}});
    }
    return lines;
}

std::u16string examplesBlock(KxJsFunction const& function) {
    if (function.getExamples().empty()) return {};
    std::u16string lines;
    for (std::u16string const& example : function.getExamples()) {
        lines += fill(exampleTemplate, {{u"example", example}});
    }
    return fill(examplesTemplate, {{u"examples", lines}});
}

}  // namespace

std::u16string KxJsFunction::toHtmlFragment(bool withExample) const {
    return fill(fragmentTemplate,
                {
                    {u"name", name},
                    {u"parameter names", kx::joinParameterNames(*this, u", ")},
                    {u"description", withLineBreaks(description)},
                    {u"parameters", parameterLines(*this)},
                    {u"return description", withLineBreaks(returnDescription)},
                    {u"examples", withExample ? examplesBlock(*this) : std::u16string()},
                });
}
