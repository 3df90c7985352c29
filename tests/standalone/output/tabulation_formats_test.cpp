#include <gmock/gmock.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <sstream>
#include <string>

#include "standalone/output/formats.h"
#include "standalone/output/html/html_tabulation.h"
#include "standalone/output/renderer.h"
#include "tests/standalone/output/results.h"
#include "tests/standalone/output/tabulations.h"

namespace standalone {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string Written(const std::string& format, const Tabulation& tabulation, std::ostream* messages = nullptr) {
  std::ostringstream stream;
  std::ostringstream ignored;
  OutputLook look;
  look.messages = messages == nullptr ? &ignored : messages;
  const std::unique_ptr<Renderer> renderer = FormatNamed(format).makeRenderer(stream, look);
  renderer->Write(Result("TABULATE", {tabulation}));
  renderer->Finish();
  return stream.str();
}

TEST(MarkdownTabulation, IsATableWithItsBases) {
  EXPECT_EQ(Written("markdown", DrinksByRegion()), R"(## Command 1

```
TABULATE
```

**Drinks (\$drinks)**

|  | Total<br>Count | Total<br>% of cases | region: North<br>Count | region: North<br>% of cases | region: South<br>Count | region: South<br>% of cases |
| --- | ---: | ---: | ---: | ---: | ---: | ---: |
| Tea | 220 | 97.3 | 124 | 96.9 | 0 | - |
| Coffee | 80 | 35.4 | 7 | 5.5 | 0 | - |
| Hot (net) | 226 | 100.0 | 128 | 100.0 | 0 | - |
| *All cases* | 240 |  | 140 |  | 2 |  |
| *Answered (base)* | 226 |  | 128 |  | 0 |  |
| *None chosen* | 9 |  | 7 |  | 2 |  |
| *Missing* | 5 |  | 5 |  | 0 |  |

9 cases chose none and are not in the base; with BASE\=ASKED it is 235.
)");
}

TEST(MarkdownTabulation, HasTheTestsAfterTheTable) {
  EXPECT_EQ(Written("markdown", DrinksByFood()), R"(## Command 1

```
TABULATE
```

**Drinks (\$drinks)**

|  | Total<br>% of cases | \$food: Bread<br>% of cases | region\*sex: North, Women<br>% of cases |
| --- | ---: | ---: | ---: |
| Tea | 97.3 | 88.5 | 20.0 |
| Coffee | 35.4 | 88.5 | 20.0 |
| Hot (net) | 100.0 | 88.5 | 20.0 |
| *All cases* | 240 | 120 | 60 |
| *Answered (base)* | 226 | 113 | 55 |
| *None chosen* | 9 | 4 | 3 |
| *Missing* | 5 | 3 | 2 |

**Association of \$drinks with \$food**

| Member | \$food | Chi-square | Corrected | df | p | Adjusted p (Holm) |
| --- | --- | --- | --- | --- | --- | --- |
| All members |  | - | - | - | - | - |
| Tea | Bread | 0.50 | - | 1 | 0.5000 | 1.0000 |
)");
}

TEST(MarkdownTabulation, ShowsTextsAsText) {
  EXPECT_EQ(Written("markdown", HostileDrinks(kHostileText)), R"(## Command 1

```
TABULATE
```

**\<b\>\&"'\`\*\_\[x\](y)\|\~\$\#\\ \\x1b\[31m\\u202e,\=1 (\$drinks)**

Where: \<b\>\&"'\`\*\_\[x\](y)\|\~\$\#\\ \\x1b\[31m\\u202e,\=1

|  | Total<br>Count | Total<br>% of cases | region: \<b\>\&"'\`\*\_\[x\](y)\|\~\$\#\\ \\x1b\[31m\\u202e,\=1<br>Count | region: \<b\>\&"'\`\*\_\[x\](y)\|\~\$\#\\ \\x1b\[31m\\u202e,\=1<br>% of cases | \<b\>\&"'\`\*\_\[x\](y)\|\~\$\#\\ \\x1b\[31m\\u202e,\=1: South<br>Count | \<b\>\&"'\`\*\_\[x\](y)\|\~\$\#\\ \\x1b\[31m\\u202e,\=1: South<br>% of cases |
| --- | ---: | ---: | ---: | ---: | ---: | ---: |
| \<b\>\&"'\`\*\_\[x\](y)\|\~\$\#\\ \\x1b\[31m\\u202e,\=1 | 220 | 97.3 | 124 | 96.9 | 0 | - |
| \=1+1 | 80 | 35.4 | 7 | 5.5 | 0 | - |
| עברית<br>second line, which is far too long to stand on one line of a terminal (net) | 226 | 100.0 | 128 | 100.0 | 0 | - |
| *All cases* | 240 |  | 140 |  | 2 |  |
| *Answered (base)* | 226 |  | 128 |  | 0 |  |
| *None chosen* | 9 |  | 7 |  | 2 |  |
| *Missing* | 5 |  | 5 |  | 0 |  |

\<b\>\&"'\`\*\_\[x\](y)\|\~\$\#\\ \\x1b\[31m\\u202e,\=1
)");
}

/// The records without their carriage returns.
std::string Csv(const Tabulation& tabulation, std::ostream* messages = nullptr) {
  std::string text = Written("csv", tabulation, messages);
  text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
  return text;
}

TEST(CsvTabulation, HasARowForEachMemberAndColumn) {
  EXPECT_EQ(
      Csv(DrinksByRegion()),
      R"(set,setLabel,base,weight,where,by,value,value2,column,member,label,net,cases,count,percentOfCases,percentOfResponses,allCases,answered,noneChosen,missing,baseCases,weightedBase,effectiveBase,responses,responsesPerCase
$drinks,Drinks,answered,,,,,,Total,drink1,Tea,false,220,220,97.34513274336283,73.33333333333333,240,226,9,5,226,226,226,300,1.3274336283185841
$drinks,Drinks,answered,,,region,N,,North,drink1,Tea,false,124,124,96.875,94.65648854961832,140,128,7,5,128,128,128,131,1.0234375
$drinks,Drinks,answered,,,region,S,,South,drink1,Tea,false,0,0,,,2,0,2,0,0,0,,0,
$drinks,Drinks,answered,,,,,,Total,drink2,Coffee,false,80,80,35.39823008849557,26.666666666666668,240,226,9,5,226,226,226,300,1.3274336283185841
$drinks,Drinks,answered,,,region,N,,North,drink2,Coffee,false,7,7,5.46875,5.343511450381679,140,128,7,5,128,128,128,131,1.0234375
$drinks,Drinks,answered,,,region,S,,South,drink2,Coffee,false,0,0,,,2,0,2,0,0,0,,0,
$drinks,Drinks,answered,,,,,,Total,Hot,Hot,true,226,226,100,,240,226,9,5,226,226,226,300,1.3274336283185841
$drinks,Drinks,answered,,,region,N,,North,Hot,Hot,true,128,128,100,,140,128,7,5,128,128,128,131,1.0234375
$drinks,Drinks,answered,,,region,S,,South,Hot,Hot,true,0,0,,,2,0,2,0,0,0,,0,
)");
}

TEST(CsvTabulation, AFigureBeyondAllNumbersIsEmpty) {
  Tabulation tabulation = DrinksByRegion();
  tabulation.rows.resize(1);
  tabulation.rows[0].cells[0].percentOfCases = std::numeric_limits<double>::infinity();
  tabulation.rows[0].cells[0].percentOfResponses = std::numeric_limits<double>::quiet_NaN();
  EXPECT_THAT(Csv(tabulation), testing::HasSubstr("Tea,false,220,220,,,240,"));
}

TEST(CsvTabulation, HasErrorsAndTestsWhereTheyAreAskedFor) {
  EXPECT_EQ(
      Csv(WeightedDrinks()),
      R"(set,setLabel,base,weight,where,by,value,value2,column,member,label,net,cases,count,percentOfCases,percentOfResponses,standardError,low,high,designEffect,allCases,answered,noneChosen,missing,baseCases,weightedBase,effectiveBase,responses,responsesPerCase
$drinks,Drinks,asked,w,age > 30,,,,Total,drink1,Tea,false,220,247.505,97.34513274336283,73.33333333333333,0.125,-0.001,12.3449,1.335,240,226,9,5,235,264.375,198.28125,300,1.3274336283185841
$drinks,Drinks,asked,w,age > 30,region,N,,North,drink1,Tea,false,124,124,96.875,94.65648854961832,,,,,140,128,7,5,135,151.875,113.90625,131,1.0234375
$drinks,Drinks,asked,w,age > 30,region,S,,South,drink1,Tea,false,0,0,,,,,,,2,0,2,0,2,2.25,1.6875,0,
$drinks,Drinks,asked,w,age > 30,,,,Total,drink2,Coffee,false,80,80,35.39823008849557,26.666666666666668,,,,,240,226,9,5,235,264.375,198.28125,300,1.3274336283185841
$drinks,Drinks,asked,w,age > 30,region,N,,North,drink2,Coffee,false,7,7,5.46875,5.343511450381679,,,,,140,128,7,5,135,151.875,113.90625,131,1.0234375
$drinks,Drinks,asked,w,age > 30,region,S,,South,drink2,Coffee,false,0,0,,,,,,,2,0,2,0,2,2.25,1.6875,0,
$drinks,Drinks,asked,w,age > 30,,,,Total,Hot,Hot,true,226,226,100,,,,,,240,226,9,5,235,264.375,198.28125,300,1.3274336283185841
$drinks,Drinks,asked,w,age > 30,region,N,,North,Hot,Hot,true,128,128,100,,,,,,140,128,7,5,135,151.875,113.90625,131,1.0234375
$drinks,Drinks,asked,w,age > 30,region,S,,South,Hot,Hot,true,0,0,,,,,,,2,0,2,0,2,2.25,1.6875,0,
set,by,member,byMember,statistic,corrected,degreesOfFreedom,p,adjustedP
$drinks,region,,,12.5,11.25,1.75,1e-05,
$drinks,region,drink1,,10.125,,1,0.0125,0.025
$drinks,region,drink2,,,,1,,
)");
}

TEST(CsvTabulation, HasTheValuesOfAPairAndTheMembersOfBothSets) {
  EXPECT_EQ(
      Csv(DrinksByFood()),
      R"(set,setLabel,base,weight,where,by,value,value2,column,member,label,net,cases,count,percentOfCases,percentOfResponses,allCases,answered,noneChosen,missing,baseCases,weightedBase,effectiveBase,responses,responsesPerCase
$drinks,Drinks,answered,,,,,,Total,drink1,Tea,false,220,220,97.34513274336283,73.33333333333333,240,226,9,5,226,226,226,300,1.3274336283185841
$drinks,Drinks,answered,,,$food,food1,,Bread,drink1,Tea,false,100,100,88.49557522123894,,120,113,4,3,113,113,113,0,
$drinks,Drinks,answered,,,region*sex,N,1,"North, Women",drink1,Tea,false,11,11,20,,60,55,3,2,55,55,55,0,
$drinks,Drinks,answered,,,,,,Total,drink2,Coffee,false,80,80,35.39823008849557,26.666666666666668,240,226,9,5,226,226,226,300,1.3274336283185841
$drinks,Drinks,answered,,,$food,food1,,Bread,drink2,Coffee,false,100,100,88.49557522123894,,120,113,4,3,113,113,113,0,
$drinks,Drinks,answered,,,region*sex,N,1,"North, Women",drink2,Coffee,false,11,11,20,,60,55,3,2,55,55,55,0,
$drinks,Drinks,answered,,,,,,Total,Hot,Hot,true,226,226,100,,240,226,9,5,226,226,226,300,1.3274336283185841
$drinks,Drinks,answered,,,$food,food1,,Bread,Hot,Hot,true,100,100,88.49557522123894,,120,113,4,3,113,113,113,0,
$drinks,Drinks,answered,,,region*sex,N,1,"North, Women",Hot,Hot,true,11,11,20,,60,55,3,2,55,55,55,0,
set,by,member,byMember,statistic,corrected,degreesOfFreedom,p,adjustedP
$drinks,$food,,,,,,,
$drinks,$food,drink1,food1,0.5,,1,0.5,1
)");
}

TEST(CsvTabulation, TellsNotesAsMessages) {
  std::ostringstream messages;
  Written("csv", Drinks(), &messages);
  EXPECT_EQ(messages.str(),
            "line 1: $drinks: 9 cases chose none and are not in the base; with BASE=ASKED it is 235.\n");
}

TEST(CsvTabulation, HasNoFormulas) {
  Tabulation tabulation = Drinks();
  tabulation.rows = {{"-1", "=1+1", false, {TabulationCell()}}};
  EXPECT_EQ(Csv(tabulation).substr(Csv(tabulation).find('\n') + 1),
            "$drinks,Drinks,answered,,,,,,Total,-1,'=1+1,false,0,0,,,240,226,9,5,226,226,226,300,1.3274336283185841\n");
}

TEST(HtmlTabulation, IsATableBesideItsBars) {
  EXPECT_EQ(HtmlTabulation(Drinks(), "t"), R"(<div class="tabulation" style="--figures: 2">
<div class="scroll" role="group" aria-labelledby="t" tabindex="0">
<table>
<caption id="t" dir="auto">Drinks ($drinks)</caption>
<colgroup></colgroup><colgroup span="2"></colgroup>
<thead>
<tr><td rowspan="2"></td><th scope="colgroup" colspan="2" dir="auto">Total</th></tr>
<tr><th scope="col" class="number">Count</th><th scope="col" class="number">% of cases</th></tr>
</thead>
<tbody>
<tr><th scope="row" dir="auto">Tea</th><td class="number">220</td><td class="number">97.3</td></tr>
<tr><th scope="row" dir="auto">Coffee</th><td class="number">80</td><td class="number">35.4</td></tr>
<tr class="net"><th scope="row" dir="auto">Hot (net)</th><td class="number">226</td><td class="number">100.0</td></tr>
</tbody>
<tfoot>
<tr><th scope="row">All cases</th><td class="number">240</td><td colspan="1"></td></tr>
<tr><th scope="row">Answered (base)</th><td class="number">226</td><td colspan="1"></td></tr>
<tr><th scope="row">None chosen</th><td class="number">9</td><td colspan="1"></td></tr>
<tr><th scope="row">Missing</th><td class="number">5</td><td colspan="1"></td></tr>
</tfoot>
</table>
</div>
<div class="scroll chart" role="group" aria-labelledby="t-chart-1" tabindex="0">
<p id="t-chart-1" class="chart-title" dir="auto">% of cases</p>
<svg role="img" aria-labelledby="t-chart-1-title t-chart-1-desc" width="100%" height="88">
<title id="t-chart-1-title">Drinks ($drinks): % of cases</title>
<desc id="t-chart-1-desc">Bars of the table's figures: % of cases. The scale goes from 0 to 100.0.</desc>
<text class="scale" x="44.00%" y="12">0</text><text class="scale" x="87.00%" y="12" text-anchor="end">100.0</text><line class="scale" x1="44.00%" y1="18" x2="87.00%" y2="18"/>
<text class="label" x="0" y="34">Tea</text>
<rect class="bar" x="44.00%" y="22" width="41.86%" height="14"/><text x="85.86%" dx="6" y="34">97.3</text>
<text class="label" x="0" y="56">Coffee</text>
<rect class="bar" x="44.00%" y="44" width="15.22%" height="14"/><text x="59.22%" dx="6" y="56">35.4</text>
<text class="label" x="0" y="78">Hot (net)</text>
<rect class="bar" x="44.00%" y="66" width="43.00%" height="14"/><text x="87.00%" dx="6" y="78">100.0</text>
</svg>
</div>
</div>
<ul class="notes">
<li dir="auto">9 cases chose none and are not in the base; with BASE=ASKED it is 235.</li>
</ul>
)");
}

TEST(HtmlTabulation, HasAChartForEachBy) {
  EXPECT_EQ(HtmlTabulation(DrinksByFood(), "t"), R"(<div class="tabulation" style="--figures: 3">
<div class="scroll" role="group" aria-labelledby="t" tabindex="0">
<table>
<caption id="t" dir="auto">Drinks ($drinks)</caption>
<colgroup></colgroup><colgroup span="1"></colgroup><colgroup span="1"></colgroup><colgroup span="1"></colgroup>
<thead>
<tr><td rowspan="3"></td><th scope="colgroup" colspan="1" rowspan="2" dir="auto">Total</th><th scope="colgroup" colspan="1" dir="auto">$food</th><th scope="colgroup" colspan="1" dir="auto">region*sex</th></tr>
<tr><th scope="col" colspan="1" dir="auto">Bread</th><th scope="col" colspan="1" dir="auto">North, Women</th></tr>
<tr><th scope="col" class="number">% of cases</th><th scope="col" class="number">% of cases</th><th scope="col" class="number">% of cases</th></tr>
</thead>
<tbody>
<tr><th scope="row" dir="auto">Tea</th><td class="number">97.3</td><td class="number">88.5</td><td class="number">20.0</td></tr>
<tr><th scope="row" dir="auto">Coffee</th><td class="number">35.4</td><td class="number">88.5</td><td class="number">20.0</td></tr>
<tr class="net"><th scope="row" dir="auto">Hot (net)</th><td class="number">100.0</td><td class="number">88.5</td><td class="number">20.0</td></tr>
</tbody>
<tfoot>
<tr><th scope="row">All cases</th><td class="number">240</td><td class="number">120</td><td class="number">60</td></tr>
<tr><th scope="row">Answered (base)</th><td class="number">226</td><td class="number">113</td><td class="number">55</td></tr>
<tr><th scope="row">None chosen</th><td class="number">9</td><td class="number">4</td><td class="number">3</td></tr>
<tr><th scope="row">Missing</th><td class="number">5</td><td class="number">3</td><td class="number">2</td></tr>
</tfoot>
</table>
</div>
<div class="scroll chart" role="group" aria-labelledby="t-chart-1" tabindex="0">
<p id="t-chart-1" class="chart-title" dir="auto">% of cases by $food: Bread</p>
<svg role="img" aria-labelledby="t-chart-1-title t-chart-1-desc" width="100%" height="88">
<title id="t-chart-1-title">Drinks ($drinks): % of cases by $food: Bread</title>
<desc id="t-chart-1-desc">Bars of the table's figures: % of cases. The scale goes from 0 to 88.5.</desc>
<text class="scale" x="44.00%" y="12">0</text><text class="scale" x="88.00%" y="12" text-anchor="end">88.5</text><line class="scale" x1="44.00%" y1="18" x2="88.00%" y2="18"/>
<text class="label" x="0" y="34">Tea</text>
<rect class="bar" x="44.00%" y="22" width="44.00%" height="14"/><text x="88.00%" dx="6" y="34">88.5</text>
<text class="label" x="0" y="56">Coffee</text>
<rect class="bar" x="44.00%" y="44" width="44.00%" height="14"/><text x="88.00%" dx="6" y="56">88.5</text>
<text class="label" x="0" y="78">Hot (net)</text>
<rect class="bar" x="44.00%" y="66" width="44.00%" height="14"/><text x="88.00%" dx="6" y="78">88.5</text>
</svg>
</div>
<div class="scroll chart" role="group" aria-labelledby="t-chart-2" tabindex="0">
<p id="t-chart-2" class="chart-title" dir="auto">% of cases by region*sex: North, Women</p>
<svg role="img" aria-labelledby="t-chart-2-title t-chart-2-desc" width="100%" height="88">
<title id="t-chart-2-title">Drinks ($drinks): % of cases by region*sex: North, Women</title>
<desc id="t-chart-2-desc">Bars of the table's figures: % of cases. The scale goes from 0 to 20.0.</desc>
<text class="scale" x="44.00%" y="12">0</text><text class="scale" x="88.00%" y="12" text-anchor="end">20.0</text><line class="scale" x1="44.00%" y1="18" x2="88.00%" y2="18"/>
<text class="label" x="0" y="34">Tea</text>
<rect class="bar" x="44.00%" y="22" width="44.00%" height="14"/><text x="88.00%" dx="6" y="34">20.0</text>
<text class="label" x="0" y="56">Coffee</text>
<rect class="bar" x="44.00%" y="44" width="44.00%" height="14"/><text x="88.00%" dx="6" y="56">20.0</text>
<text class="label" x="0" y="78">Hot (net)</text>
<rect class="bar" x="44.00%" y="66" width="44.00%" height="14"/><text x="88.00%" dx="6" y="78">20.0</text>
</svg>
</div>
</div>
<div class="scroll" role="group" aria-labelledby="t-test-1" tabindex="0">
<table>
<caption id="t-test-1">Association of $drinks with $food</caption>
<thead>
<tr><th scope="col">Member</th><th scope="col">$food</th><th scope="col" class="number">Chi-square</th><th scope="col">Corrected</th><th scope="col" class="number">df</th><th scope="col" class="number">p</th><th scope="col" class="number">Adjusted p (Holm)</th></tr>
</thead>
<tbody>
<tr><th scope="row" dir="auto">All members</th><td dir="auto"></td><td class="number" dir="auto">-</td><td dir="auto">-</td><td class="number" dir="auto">-</td><td class="number" dir="auto">-</td><td class="number" dir="auto">-</td></tr>
<tr><th scope="row" dir="auto">Tea</th><td dir="auto">Bread</td><td class="number" dir="auto">0.50</td><td dir="auto">-</td><td class="number" dir="auto">1</td><td class="number" dir="auto">0.5000</td><td class="number" dir="auto">1.0000</td></tr>
</tbody>
</table>
</div>
)");
}

TEST(HtmlTabulation, ShowsTextsAsText) {
  EXPECT_EQ(HtmlTabulation(HostileDrinks(kHostileText), "t"), R"(<div class="tabulation" style="--figures: 6">
<div class="scroll" role="group" aria-labelledby="t" tabindex="0">
<table>
<caption id="t" dir="auto">&lt;b&gt;&amp;&quot;&#39;`*_[x](y)|~$#\ \x1b[31m\u202e,=1 ($drinks) <span class="scope">Where: &lt;b&gt;&amp;&quot;&#39;`*_[x](y)|~$#\ \x1b[31m\u202e,=1</span></caption>
<colgroup></colgroup><colgroup span="2"></colgroup><colgroup span="2"></colgroup><colgroup span="2"></colgroup>
<thead>
<tr><td rowspan="3"></td><th scope="colgroup" colspan="2" rowspan="2" dir="auto">Total</th><th scope="colgroup" colspan="2" dir="auto">region</th><th scope="colgroup" colspan="2" dir="auto">&lt;b&gt;&amp;&quot;&#39;`*_[x](y)|~$#\ \x1b[31m\u202e,=1</th></tr>
<tr><th scope="col" colspan="2" dir="auto">&lt;b&gt;&amp;&quot;&#39;`*_[x](y)|~$#\ \x1b[31m\u202e,=1</th><th scope="col" colspan="2" dir="auto">South</th></tr>
<tr><th scope="col" class="number">Count</th><th scope="col" class="number">% of cases</th><th scope="col" class="number">Count</th><th scope="col" class="number">% of cases</th><th scope="col" class="number">Count</th><th scope="col" class="number">% of cases</th></tr>
</thead>
<tbody>
<tr><th scope="row" dir="auto">&lt;b&gt;&amp;&quot;&#39;`*_[x](y)|~$#\ \x1b[31m\u202e,=1</th><td class="number">220</td><td class="number">97.3</td><td class="number">124</td><td class="number">96.9</td><td class="number">0</td><td class="number">-</td></tr>
<tr><th scope="row" dir="auto">=1+1</th><td class="number">80</td><td class="number">35.4</td><td class="number">7</td><td class="number">5.5</td><td class="number">0</td><td class="number">-</td></tr>
<tr class="net"><th scope="row" dir="auto">עברית<br>second line, which is far too long to stand on one line of a terminal (net)</th><td class="number">226</td><td class="number">100.0</td><td class="number">128</td><td class="number">100.0</td><td class="number">0</td><td class="number">-</td></tr>
</tbody>
<tfoot>
<tr><th scope="row">All cases</th><td class="number">240</td><td colspan="1"></td><td class="number">140</td><td colspan="1"></td><td class="number">2</td><td colspan="1"></td></tr>
<tr><th scope="row">Answered (base)</th><td class="number">226</td><td colspan="1"></td><td class="number">128</td><td colspan="1"></td><td class="number">0</td><td colspan="1"></td></tr>
<tr><th scope="row">None chosen</th><td class="number">9</td><td colspan="1"></td><td class="number">7</td><td colspan="1"></td><td class="number">2</td><td colspan="1"></td></tr>
<tr><th scope="row">Missing</th><td class="number">5</td><td colspan="1"></td><td class="number">5</td><td colspan="1"></td><td class="number">0</td><td colspan="1"></td></tr>
</tfoot>
</table>
</div>
<div class="scroll chart" role="group" aria-labelledby="t-chart-1" tabindex="0">
<p id="t-chart-1" class="chart-title" dir="auto">% of cases by region: &lt;b&gt;&amp;&quot;&#39;`*_[x](y)|~$#\ \x1b[31m\u202e,=1</p>
<svg role="img" aria-labelledby="t-chart-1-title t-chart-1-desc" width="100%" height="178">
<title id="t-chart-1-title">&lt;b&gt;&amp;&quot;&#39;`*_[x](y)|~$#\ \x1b[31m\u202e,=1 ($drinks): % of cases by region: &lt;b&gt;&amp;&quot;&#39;`*_[x](y)|~$#\ \x1b[31m\u202e,=1</title>
<desc id="t-chart-1-desc">Bars of the table's figures: % of cases. The scale goes from 0 to 100.0.</desc>
<text class="scale" x="44.00%" y="12">0</text><text class="scale" x="87.00%" y="12" text-anchor="end">100.0</text><line class="scale" x1="44.00%" y1="18" x2="87.00%" y2="18"/>
<text class="label" x="0" y="34" textLength="174" lengthAdjust="spacingAndGlyphs">&lt;b&gt;&amp;&quot;&#39;`*_[x](y)|~$#\</text>
<text class="label" x="0" y="52">\x1b[31m\u202e,=1</text>
<rect class="bar" x="44.00%" y="22" width="41.66%" height="14"/><text x="85.66%" dx="6" y="34">96.9</text>
<text class="label" x="0" y="74">=1+1</text>
<rect class="bar" x="44.00%" y="62" width="2.35%" height="14"/><text x="46.35%" dx="6" y="74">5.5</text>
<text class="label" x="0" y="96">עברית</text>
<text class="label" x="0" y="114">second line, which</text>
<text class="label" x="0" y="132">is far too long to</text>
<text class="label" x="0" y="150">stand on one line of</text>
<text class="label" x="0" y="168">a terminal (net)</text>
<rect class="bar" x="44.00%" y="84" width="43.00%" height="14"/><text x="87.00%" dx="6" y="96">100.0</text>
</svg>
</div>
</div>
<ul class="notes">
<li dir="auto">&lt;b&gt;&amp;&quot;&#39;`*_[x](y)|~$#\ \x1b[31m\u202e,=1</li>
</ul>
)");
}

TEST(HtmlTabulation, DrawsNoMoreBarsThanAnybodyLooksAt) {
  Tabulation tabulation = Drinks();
  tabulation.rows.resize(200, tabulation.rows.front());
  EXPECT_NE(HtmlTabulation(tabulation, "t").find("<svg"), std::string::npos);
  tabulation.rows.resize(201, tabulation.rows.front());
  EXPECT_EQ(HtmlTabulation(tabulation, "t").find("<svg"), std::string::npos);
}

TEST(HtmlTabulation, DrawsBarsOfWhatTheTableShowsWithRoomForItsValues) {
  Tabulation tabulation = Drinks();
  tabulation.figures = {true, false, false, false, false};
  tabulation.rows.resize(1);
  tabulation.rows[0].cells[0].count = 123456789;
  const std::string html = HtmlTabulation(tabulation, "t");
  EXPECT_THAT(html, HasSubstr(R"(<p id="t-chart-1" class="chart-title" dir="auto">Count</p>
<svg role="img" aria-labelledby="t-chart-1-title t-chart-1-desc" width="100%" height="44">
<title id="t-chart-1-title">Drinks ($drinks): Count</title>
<desc id="t-chart-1-desc">Bars of the table's figures: Count. The scale goes from 0 to 123456789.</desc>
<text class="scale" x="44.00%" y="12">0</text><text class="scale" x="79.00%" y="12" text-anchor="end">123456789</text><line class="scale" x1="44.00%" y1="18" x2="79.00%" y2="18"/>
<text class="label" x="0" y="34">Tea</text>
<rect class="bar" x="44.00%" y="22" width="35.00%" height="14"/><text x="79.00%" dx="6" y="34">123456789</text>
</svg>
)"));
}

TEST(HtmlTabulation, HasNoChartWhereNoBarHasALength) {
  Tabulation tabulation = Drinks();
  tabulation.figures = {false, false, false, true, false};
  EXPECT_THAT(HtmlTabulation(tabulation, "t"), Not(HasSubstr("<svg")));
  tabulation.figures.percentOfCases = true;
  EXPECT_THAT(HtmlTabulation(tabulation, "t"), HasSubstr("<svg"));
  for (TabulationRow& row : tabulation.rows) {
    row.cells[0].percentOfCases = {};
  }
  EXPECT_THAT(HtmlTabulation(tabulation, "t"), Not(HasSubstr("<svg")));
}

TEST(HtmlTabulation, ShowsLinesOfLabelsAsLinesAndOtherTextsOnOne) {
  Tabulation tabulation = DrinksByRegion();
  tabulation.label = "a\nb";
  tabulation.where = "c\nd";
  tabulation.columns[1].labels = {"e\nf"};
  tabulation.rows[0].label = "g\nh";
  tabulation.notes = {"i\nj"};
  const std::string html = HtmlTabulation(tabulation, "t");
  for (const char* part : {">a b ($drinks) ", ">Where: c d<", ">e<br>f<", ">g<br>h<", ">i j<"}) {
    EXPECT_THAT(html, HasSubstr(part));
  }
  EXPECT_THAT(html, Not(HasSubstr("\\n")));
}

TEST(HtmlTabulation, GivesColoursToColumnsThatAreFewEnough) {
  Tabulation tabulation = Drinks();
  const auto addColumn = [&] {
    tabulation.columns.push_back(TabulatedColumn("region", {"x"}, {"X"}, {1, 1, 0, 0, 1}));
    for (TabulationRow& row : tabulation.rows) {
      row.cells.push_back(UnweightedCell(1, 1, 1));
    }
  };
  while (tabulation.columns.size() < 8) {
    addColumn();
  }
  EXPECT_NE(HtmlTabulation(tabulation, "t").find("\"bar bar-7\""), std::string::npos);
  addColumn();
  EXPECT_EQ(HtmlTabulation(tabulation, "t").find("\"bar bar-1\""), std::string::npos);
}

TEST(Tabulation, IsWrittenWhateverItsSize) {
  Tabulation many = DrinksByRegion();
  many.rows.resize(1000, many.rows[1]);
  for (const std::string& format : RunFormatNames()) {
    EXPECT_GT(Written(format, HostileDrinks(std::string(1 << 17, '='))).size(), 1000U) << format;
    EXPECT_GT(Written(format, many).size(), 10000U) << format;
  }
}

}  // namespace
}  // namespace standalone
