#include "doc/HtmlText.h"
#include "doc/Template.h"
#include "library/KxJsFunction.h"

namespace {

using kx::fill;
using kx::withLineBreaks;

// rel='toTranslate' marks the texts that a publisher of the page may want to translate.
constexpr std::u16string_view kPageTemplate =
    uR"html(
<!doctype html>
<html>
	<head>
		<title>{{name}}</title>
		<style>
			#section{text-transform:capitalize;text-align:left;color: #006;}
			h1{color: #006;}
			.divSection{background-color:#EEEEFF;border:2px solid #CCCCCC;padding:0px 10px;padding-bottom:10px;margin-bottom:10px;}
			.titreBlock{color: #006;border-bottom:2px dashed white;}
			.whiteBlock,.exampleBlock{background-color:white;border:1px solid black;padding:0px 5px;}
			.exampleBlock{margin-bottom:5px;}
			pre{display:inline;}
			dd{background-color:#F5F5FF;padding:7px;border:2px groove white;}
		</style>
	</head>
	<body>
	<div>
		<h3 id='section' ><span rel='toTranslate'>{{category}}</span></h3>
		<h1>{{name}}</h1>
		<p>{{name}} &mdash; <span rel='toTranslate'>{{description}}</span></p>
	</div>
	<div class='divSection' id='description'>
		<h3 class='titreBlock'>Description</h3>
		<div class='whiteBlock'>
			<b>{{name}}</b> {{signature}}
		</div>
		<p><b><span rel='toTranslate'>{{description}}</span></b></p>
	</div>
	<div class='divSection' id='parameters'>
		<h3 class='titreBlock'>Parameters</h3>
		<dl>
{{parameters}}
		</dl>
	</div>
	<div class='divSection' id='return'>
		<h3 class='titreBlock'>Return Values</h3>
		<span rel='toTranslate'>{{return description}}</span>
	</div>
{{examples}}
	</body>
</html>)html";

constexpr std::u16string_view kParameterTemplate =
    uR"html(
			<dt><b>{{name}}</b></dt>
			<dd><span rel='toTranslate'>{{description}}</span></dd>
)html";

constexpr std::u16string_view kExamplesTemplate =
    uR"html(
	<div class='divSection' id='examples'>
		<h3 class='titreBlock'>Examples</h3>
{{examples}}
	</div>
)html";

constexpr std::u16string_view kExampleTemplate =
    uR"html(
		<div class='exampleBlock'>
			<pre>{{example}}</pre>
		</div>
)html";

/// Returns "( a , b )", or "( )" without parameters. A page has more blanks than a fragment.
std::u16string spacedSignature(KxJsFunction const& function) {
    if (function.getParameters().empty()) return u"( )";
    return u"( " + kx::joinParameterNames(function, u" , ") + u" )";
}

std::u16string parameterList(KxJsFunction const& function) {
    std::u16string list;
    for (auto const& [name, description] : function.getParameters()) {
        list += fill(kParameterTemplate,
                     {{u"name", name}, {u"description", withLineBreaks(description)}});
    }
    return list;
}

std::u16string examplesBlock(KxJsFunction const& function) {
    if (function.getExamples().empty()) return {};
    std::u16string blocks;
    for (std::u16string const& example : function.getExamples()) {
        blocks += fill(kExampleTemplate, {{u"example", example}});
    }
    return fill(kExamplesTemplate, {{u"examples", blocks}});
}

}  // namespace

std::u16string KxJsFunction::toHtmlPage() const {
    return fill(kPageTemplate, {
                                   {u"name", name_},
                                   {u"category", category_},
                                   {u"description", withLineBreaks(description_)},
                                   {u"signature", spacedSignature(*this)},
                                   {u"parameters", parameterList(*this)},
                                   {u"return description", withLineBreaks(returnDescription_)},
                                   {u"examples", examplesBlock(*this)},
                               });
}
