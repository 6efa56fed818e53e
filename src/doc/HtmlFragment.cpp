#include "doc/HtmlText.h"
#include "doc/Template.h"
#include "library/KxJsFunction.h"

namespace {

using kx::fill;
using kx::withLineBreaks;

constexpr std::u16string_view kFragmentTemplate =
    uR"html(
<div style='margin-bottom:10px;' id='{{name}}'>
	<b>{{name}}({{parameter names}})</b><br/>
	<i>{{description}}</i><br/>
{{parameters}}
	<span style='color:green;'>&larr; Return</span> {{return description}}<br/>
{{examples}}
</div>
)html";

constexpr std::u16string_view kParameterTemplate =
    uR"html(
	<span style='color:purple;'>&rarr; Parameter</span> {{name}} = {{description}}<br/>
)html";

constexpr std::u16string_view kExamplesTemplate =
    uR"html(
	<i>Example :</i>
	<div style='margin-left:22px;'>
{{examples}}
	</div>
)html";

constexpr std::u16string_view kExampleTemplate =
    uR"html(
		{{example}}<br/>
)html";

std::u16string parameterLines(KxJsFunction const& function) {
    std::u16string lines;
    for (auto const& [name, description] : function.getParameters()) {
        lines += fill(kParameterTemplate,
                      {{u"name", name}, {u"description", withLineBreaks(description)}});
    }
    return lines;
}

std::u16string examplesBlock(KxJsFunction const& function) {
    if (function.getExamples().empty()) return {};
    std::u16string lines;
    for (std::u16string const& example : function.getExamples()) {
        lines += fill(kExampleTemplate, {{u"example", example}});
    }
    return fill(kExamplesTemplate, {{u"examples", lines}});
}

}  // namespace

std::u16string KxJsFunction::toHtmlFragment(bool withExample) const {
    return fill(kFragmentTemplate,
                {
                    {u"name", name_},
                    {u"parameter names", kx::joinParameterNames(*this, u", ")},
                    {u"description", withLineBreaks(description_)},
                    {u"parameters", parameterLines(*this)},
                    {u"return description", withLineBreaks(returnDescription_)},
                    {u"examples", withExample ? examplesBlock(*this) : std::u16string()},
                });
}
