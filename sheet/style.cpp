#include "sheet/style.h"

const std::string_view kSheetStyle = R"css(
*{box-sizing:border-box}
html{background:#e9e9e9;-webkit-text-size-adjust:100%}
body{margin:0;color:#000;font:9pt/1.35 "Yu Gothic","Meiryo","Hiragino Sans","Noto Sans CJK JP","IPAPGothic",sans-serif;font-variant-numeric:tabular-nums}
main{width:178mm;margin:0 auto;background:#fff}
.choice{position:absolute;opacity:0}
.languages{width:178mm;margin:0 auto;padding:4mm 0 2mm;font-size:9pt}
.languages label{display:inline-block;padding:1mm 3mm;border:0.3mm solid #555;background:#fff;margin-right:1mm;cursor:pointer}
#both:checked~.languages [for=both],#ja:checked~.languages [for=ja],#en:checked~.languages [for=en]{background:#1f3a5f;color:#fff;border-color:#1f3a5f}
#both:focus-visible~.languages [for=both],#ja:focus-visible~.languages [for=ja],#en:focus-visible~.languages [for=en]{outline:0.7mm solid #e08a00}
.en-alone{display:none}
#ja:checked~main .en,#ja:checked~main .both{display:none}
#en:checked~main .ja,#en:checked~main .both{display:none}
#en:checked~main .en-alone{display:inline}
h1{font-size:15pt;line-height:1.2;margin:0 0 1.5mm;padding-bottom:1mm;border-bottom:0.5mm solid #1f3a5f}
h2{font-size:11.5pt;line-height:1.2;margin:3.2mm 0 1.5mm;break-after:avoid}
h3{font-size:9.5pt;margin:3.5mm 0 1mm;break-after:avoid}
.no{display:inline-block;min-width:6mm;padding:0 1.4mm;margin-right:2mm;background:#1f3a5f;color:#fff;text-align:center;-webkit-print-color-adjust:exact;print-color-adjust:exact}
.en{font-size:72%;color:#333}
h1 .en,h2 .en,h3 .en{font-weight:normal;margin-left:2mm}
h1 .en{display:block;margin:0;font-size:9pt}
#en:checked~main .en{font-size:inherit;color:inherit}
#en:checked~main h1 .en{font-size:13.5pt}
#en:checked~main h1 .en,#en:checked~main h2 .en,#en:checked~main h3 .en{font-weight:bold;margin-left:0}
p{margin:0.8mm 0}
.ja+.en{margin-left:1.2mm}
#en:checked~main .en{margin-left:0}
.small{font-size:7.8pt;line-height:1.25}
.formula{font-size:9pt;margin:0 0 2.5mm}
.formula .ja,.formula .en{display:block;margin:0}
#ja:checked~main .formula .en,#en:checked~main .formula .ja{display:none}
.formula .ja{font-size:8pt}
.formulas{font-family:"Cambria Math","Times New Roman","Noto Serif CJK JP",serif;font-size:110%}
sub,sup{font-size:70%;line-height:0}
table{width:100%;border-collapse:collapse;table-layout:fixed;font-size:8pt;margin:0 0 1.5mm}
caption{text-align:left;font-weight:bold;font-size:8.5pt;padding:0.8mm 0 0.5mm;break-after:avoid}
caption .en{font-weight:normal}
.quiet caption{position:absolute;width:1px;height:1px;overflow:hidden;clip-path:inset(50%)}
.columns{columns:2;column-gap:5mm;font-size:7.2pt;line-height:1.3}
.columns h3{margin-top:1.5mm}
.columns .method{font-size:7.2pt;padding-left:4.5mm;margin-bottom:1mm}
.columns .method li{margin:0.3mm 0}
.columns table{font-size:7pt}
.columns .formulas{display:block}
th,td{border:0.2mm solid #666;padding:0.55mm 0.8mm;vertical-align:middle;overflow-wrap:anywhere;text-align:right;font-weight:normal;line-height:1.22}
thead{display:table-header-group}
thead th{background:#edf1f6;text-align:center;font-size:7.5pt;line-height:1.2;-webkit-print-color-adjust:exact;print-color-adjust:exact}
thead .ja,thead .en{display:block;margin:0}
thead [scope=colgroup] .ja,thead [scope=colgroup] .en{display:inline;margin:0 0.5mm}
thead th{padding:0.4mm 0.3mm;overflow-wrap:break-word}
#ja:checked~main thead .en,#en:checked~main thead .ja,#ja:checked~main thead [scope=colgroup] .en,#en:checked~main thead [scope=colgroup] .ja{display:none}
thead .en{font-size:6.5pt;line-height:1.1}
#en:checked~main thead .en{font-size:6.8pt}
.unit{display:block;font-size:6.5pt;color:#333}
tbody th{background:#f6f8fa;text-align:center;-webkit-print-color-adjust:exact;print-color-adjust:exact}
tr,figure,.together,.errors,.factors{break-inside:avoid}
table.short{break-inside:avoid}
.text td,.text tbody th,td.l{text-align:left}
.c{text-align:center}
td.first{border-left-width:0.5mm}
.sum td,.sum th{font-weight:bold;border-top:0.5mm solid #333}
table.head td,table.head th{padding:0.2mm 1mm}
table.head{font-size:7.7pt}
.write{height:5mm}
.labelled{display:inline-block;margin-right:0.9mm}
.labelled .en{font-size:65%;margin-left:0.6mm}
.path{overflow-wrap:anywhere}
.digest,code{font-family:"Cascadia Mono","Consolas","Noto Sans Mono CJK JP","IPAGothic",monospace;font-size:7.5pt}
.overall{border:0.6mm solid #000;padding:0.8mm 3mm;font-size:14pt;font-weight:bold;margin:1mm 0 2mm;line-height:1.2;break-inside:avoid;-webkit-print-color-adjust:exact;print-color-adjust:exact}
.overall .en{font-size:9pt;font-weight:normal}
.overall .counts{font-size:11pt;margin-left:4mm}
.overall .counts .en{font-size:8pt}
#en:checked~main .overall .counts .en{font-size:11pt}
.overall .tool{float:right;font-size:9pt;font-weight:normal;line-height:6.5mm}
.overall.ng{background:#fbd5d5}
.overall.open{background:#fdf0c4}
.overall strong .en{font-size:inherit;font-weight:inherit;color:inherit;margin:0}
.alarm,.errors{border:0.7mm solid #c00000;padding:1.2mm 2mm;margin:1mm 0 2mm}
.alarm{color:#a00000;font-weight:bold}
.errors ul{margin:0.5mm 0;padding-left:4mm}
.todo{display:block}
.crowded table.head{font-size:7pt}
.crowded table.head .digest{font-size:6.8pt}
.crowded table.head td,.crowded table.head th{padding-top:0;padding-bottom:0;line-height:1.1}
.crowded .write{height:4mm}
.crowded h1{font-size:14pt;margin-bottom:0.8mm;padding-bottom:0.3mm}
.crowded #S1>h2,.crowded #S2>h2{margin:1.5mm 0 0.8mm}
.crowded .overall{padding:0.2mm 3mm;margin:0.6mm 0 1mm}
.crowded .overall .counts{font-size:10pt;margin-left:2mm}
.crowded .overall .counts .en{font-size:6.3pt}
.crowded #S1 .verdict{font-size:7.4pt;line-height:1.05}
.crowded .errors{font-size:7.4pt;line-height:1.22;padding:0.5mm 1.5mm;margin:0.6mm 0 1mm}
.crowded .errors .en{font-size:6pt}
.crowded .errors ul{margin:0}
.crowded .errors .todo,.crowded .errors .en.below{display:inline}
.crowded .errors .todo{margin-left:1mm}
.crowded #S1 td,.crowded #S1 th{padding-top:0.2mm;padding-bottom:0.2mm}
.crowded .extent,.crowded .footnote{font-size:7pt;line-height:1.1}
.crowded #S2 .figures,.crowded #S2 .legends{margin:0}
.crowded .tight tbody{font-size:6.9pt}
.crowded .tight tbody td,.crowded .tight tbody th{line-height:1.06}
.crowded #S2>.small{margin:0}
.verdict{text-align:center;font-weight:bold}
.verdict small,td small{font-weight:normal;font-size:6.5pt}
.verdict small{margin-left:1.2mm}
.verdict.ng{background:#fbd5d5;-webkit-print-color-adjust:exact;print-color-adjust:exact}
.verdict.open{background:#fdf0c4;white-space:normal;-webkit-print-color-adjust:exact;print-color-adjust:exact}
#en:checked~main .verdict.open::after{content:"not determinable";display:block;font-size:6pt;font-weight:normal}
#en:checked~main #S1 .verdict.open::after{font-size:5.4pt}
td.differs{outline:0.5mm solid #000;outline-offset:-0.5mm}
sup[data-note]{font-weight:normal;font-size:6.2pt;margin-left:0.5mm;vertical-align:super}
.governs{font-weight:bold;text-decoration:underline;text-underline-offset:0.5mm}
.yellow{background:#fff2a8;-webkit-print-color-adjust:exact;print-color-adjust:exact}
.red{color:#b00000;font-weight:bold}
.hardly{font-style:italic}
.reference{color:#333}
.crosses{font-weight:bold;border:0.4mm dashed #000}
.letter::before{content:attr(data-letter) " ";color:#444;float:left}
.plus::before{content:"+"}
.notes{list-style:none;margin:0 0 2mm;padding:0;font-size:7.5pt}
.extent,.footnote{font-size:7.8pt;margin:0;line-height:1.25}
.beyond{border-left:1mm solid #e0a800;padding-left:2mm}
.input-note{font-size:8.5pt}
.dense td,.dense th{padding-top:0.2mm;padding-bottom:0.2mm}
.dense{font-size:7.5pt}
.dense thead .en,.dense .unit{display:inline;font-size:6.2pt}
.unit{margin-left:0.6mm;white-space:nowrap}
.tight{margin-bottom:1mm}
.tight tbody td,.tight tbody th{padding-top:0;padding-bottom:0;line-height:1.2}
.tight.wide tbody{font-size:7.1pt}
.wide{font-size:7.3pt}
.wide td,.wide th{padding-left:0.4mm;padding-right:0.4mm}
.wide thead th{font-size:6.9pt;padding-left:0.1mm;padding-right:0.1mm}
.wide thead .en{font-size:6.2pt}
.detail{font-size:7.2pt}
.detail td,.detail th{padding:0.25mm 0.5mm;line-height:1.2}
.detail thead th{font-size:6.8pt}
.detail .en{font-size:6pt}
.narrow{width:150mm}
.terms .sum td{font-size:6.5pt;overflow-wrap:normal}
.terms td:nth-of-type(4),.terms td:nth-of-type(9){border-left-width:0.5mm}
.terms .sum td:nth-of-type(1),.terms .sum td:nth-of-type(6){border-left-width:0.5mm}
.terms .sum td:nth-of-type(4),.terms .sum td:nth-of-type(9){border-left-width:0.2mm}
.figures{display:block;margin:1mm 0 0.5mm;break-inside:avoid}
figure{display:inline-block;vertical-align:top;margin:0 2mm 1mm 0}
figure+figure{margin-right:0}
figcaption{text-align:center;font-size:8pt;line-height:1.3}
.plans figure{width:88mm;margin:0 0 2mm;text-align:center}
.plans figure+figure{margin-left:2mm}
.side{display:inline-block;vertical-align:top;padding-top:4mm}
.side .legend{display:block;margin:0.6mm 0}
.legends{font-size:7.5pt;margin:0 0 1mm}
.legend{display:inline-block;margin-right:3mm;white-space:nowrap}
.side .legend{white-space:normal}
svg{vertical-align:middle;font-family:inherit}
.method{margin:0 0 2mm;padding-left:5mm;font-size:8.5pt}
.method li{margin:0.5mm 0}
.few{font-size:7.8pt;columns:2;column-gap:4mm}
.few li{break-inside:avoid}
.followed{list-style:none;margin:0 0 2.5mm;padding:0 0 0 2mm;font-size:7.8pt}
.factors{font-size:8pt;margin-top:2mm}
.factors ul{margin:0.5mm 0;padding-left:4mm;columns:2;column-gap:4mm}
.factors li{break-inside:avoid}
.en.below{display:block;margin-left:0}
#ja:checked~main .en.below{display:none}
.remarks td .en,.errors .en{font-size:6.8pt}
.kind .ja,.kind .en{display:block;margin:0}
#ja:checked~main .kind .en,#en:checked~main .kind .ja{display:none}
.remarks td,.remarks th{vertical-align:top}
tr.error td,tr.error th{background:#fbd5d5;-webkit-print-color-adjust:exact;print-color-adjust:exact}
tr.warning td,tr.warning th{background:#fff6cf;-webkit-print-color-adjust:exact;print-color-adjust:exact}
.input .line code{white-space:pre-wrap}
.input div{font-size:7.5pt}
.input td,.input th{padding-top:0.3mm;padding-bottom:0.3mm}
.warned{color:#6b4e00}
div.wrong{color:#a00000;font-weight:bold}
tr.wrong td{background:#fbd5d5;-webkit-print-color-adjust:exact;print-color-adjust:exact}
@page{size:A4 portrait;margin:16mm 12mm 15mm 20mm;@bottom-center{content:counter(page) " / " counter(pages);font:8pt sans-serif}@bottom-left{content:"PAGE_FOOT";font:7pt sans-serif;color:#333}}
@media print{
html{background:#fff}
.choice,.languages{display:none}
main{margin:0}
.own-page{break-before:page}
.own-page>h2{margin-top:0}
}
@media screen{
main{padding:10mm;width:198mm;box-shadow:0 0 3mm #999;margin-bottom:10mm}
.languages{width:198mm}
}
@media screen and (max-width:780px){
main,.languages{width:auto;padding:3mm}
section,header{overflow-x:auto}
section>table{min-width:172mm}
}
)css";

const std::string_view kStyleOfCrowdedFirstPage =
    "@page:first{margin-top:10mm;margin-bottom:11mm}\n";

std::string StyleWithFoot(std::string_view foot) {
    constexpr std::string_view kPlace = "PAGE_FOOT";
    std::string style(kSheetStyle);
    style.replace(style.find(kPlace), kPlace.size(), foot);
    return style;
}
