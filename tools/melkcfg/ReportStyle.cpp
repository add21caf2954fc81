// Light and dark by what the reader's system asks for; on paper light, with everything that is open on the page.
#include "ReportStyle.h"

#include "VEXMELKSvg.h"

namespace {

constexpr std::string_view rules = R"(
:root{--ground:#fff;--text:#1b1f24;--faint:#57606a;--line:#d0d7de;--soft:#f6f8fa;--accent:#0a5aa8;--customer:#c2410c;--bad:#b42318;--warn:#8a5a00}
*{box-sizing:border-box}
html{scroll-padding-top:4.5rem}
body{margin:0;background:var(--ground);color:var(--text);font:15px/1.5 system-ui,"DejaVu Sans",Verdana,Arial,sans-serif}
header,main,footer{max-width:1280px;margin:auto;padding:0 1.2rem}
header{padding-top:1.4rem}
h1{font-size:1.6rem;margin:.2rem 0}
h2{font-size:1.25rem;margin:2.4rem 0 .5rem;border-bottom:1px solid var(--line);padding-bottom:.2rem}
h3{font-size:1rem;margin:1rem 0 .3rem}
a{color:var(--accent)}
:focus-visible{outline:3px solid var(--accent);outline-offset:2px}
.skip{position:absolute;left:-99rem}.skip:focus{left:.5rem;top:.5rem;background:var(--ground);padding:.4rem;z-index:9}
.faint{color:var(--faint)}
.bar{position:sticky;top:0;z-index:5;background:var(--ground);border-bottom:1px solid var(--line)}
.bar form{max-width:1280px;margin:auto;padding:.6rem 1.2rem;display:flex;flex-wrap:wrap;gap:.4rem 1.1rem;align-items:center}
.bar input[type=search],.bar select{font:inherit;padding:.25rem .5rem;border:1px solid var(--line);border-radius:5px;background:var(--soft);color:inherit}
.bar input[type=search]{min-width:17rem}
nav ul{columns:5 11rem;padding-left:1.1rem;margin:.4rem 0}
.scroll{overflow-x:auto}
table{border-collapse:collapse;margin:.4rem 0;font-size:.87rem}
caption{text-align:left;color:var(--faint);padding:.2rem 0}
th,td{border:1px solid var(--line);padding:.22rem .55rem;text-align:left;vertical-align:top}
thead th,tbody th[scope=rowgroup]{background:var(--soft)}
td.n{text-align:right;font-variant-numeric:tabular-nums}
code,.hash{font-family:ui-monospace,"DejaVu Sans Mono",monospace;font-size:.82rem;overflow-wrap:anywhere}
.customer{color:var(--customer)}
.error{color:var(--bad);font-weight:600}.warning{color:var(--warn);font-weight:600}
details{border:1px solid var(--line);border-radius:6px;margin:.5rem 0;padding:0 .8rem}
details details{border:0;margin:0;padding:0}
summary{cursor:pointer;padding:.35rem 0;font-weight:600}
td summary{font-weight:400;padding:0;font-family:inherit}
.hidden{display:none}
svg.drawing{max-width:100%;height:auto;display:block;margin:.3rem 0}
@media (prefers-color-scheme:dark){
:root{--ground:#14181d;--text:#e6edf3;--faint:#9aa6b2;--line:#333c46;--soft:#1c2229;--accent:#6cb2f7;--customer:#ff9a5c;--bad:#ff8a80;--warn:#f0c05a;color-scheme:dark}
}
@media print{
:root{--ground:#fff;--text:#000;--faint:#444;--line:#999;--soft:#f2f2f2;--accent:#0a5aa8;--customer:#c2410c}
.bar,.skip,nav{display:none}
body{font-size:10pt}
details,tr,svg{break-inside:avoid}
h2{break-after:avoid}
a{color:inherit;text-decoration:none}
}
)";

// Hides what does not have the words that are looked for. Nothing is sent or loaded, and nothing is kept.
constexpr std::string_view script = R"js(
"use strict";
(() => {
  const form = document.getElementById("filter");
  const words = document.getElementById("words");
  const which = document.getElementById("which");
  const customers = document.getElementById("customers");
  const found = document.getElementById("found");
  const sections = [...document.querySelectorAll("section.configuration")];
  const cells = new Map(sections.map(s => [s, [...s.querySelectorAll("details.cell")]]));
  const text = new Map();
  for (const s of sections) {
    for (const c of cells.get(s)) text.set(c, c.textContent.toLowerCase());
    text.set(s, (s.querySelector("h2").textContent + " " + s.dataset.about).toLowerCase());
  }
  const apply = () => {
    const wanted = words.value.toLowerCase().split(/\s+/).filter(Boolean);
    let shown = 0;
    for (const s of sections) {
      const named = text.get(s);
      let any = false;
      for (const c of cells.get(s)) {
        const all = named + " " + text.get(c);
        const fits = wanted.every(w => all.includes(w)) && (!customers.checked || c.classList.contains("by-customer"));
        c.classList.toggle("hidden", !fits);
        if (fits) any = true;
        if (fits && (!which.value || which.value === s.id)) ++shown;
      }
      s.classList.toggle("hidden", !any || (which.value !== "" && which.value !== s.id));
    }
    found.textContent = shown + (shown === 1 ? " entry" : " entries");
  };
  form.addEventListener("submit", e => e.preventDefault());
  for (const control of [words, which, customers]) control.addEventListener("input", apply);
  const open = () => {
    let target = null;
    try { target = document.getElementById(decodeURIComponent(location.hash.slice(1))); } catch (e) { return; }
    for (let e = target; e; e = e.parentElement) if (e.tagName === "DETAILS") e.open = true;
    if (target) target.scrollIntoView();
  };
  addEventListener("hashchange", open);
  let kept = [];
  addEventListener("beforeprint", () => { kept = [...document.querySelectorAll("details.cell:not([open])")]; kept.forEach(d => d.open = true); });
  addEventListener("afterprint", () => { kept.forEach(d => d.open = false); });
  apply();
  open();
})();
)js";

} // namespace

std::string ReportStyle()
{
    return std::string(rules) + VEXMELKSvgStyle(false) + "@media screen and (prefers-color-scheme:dark){\n" +
           VEXMELKSvgStyle(true) + "}\n";
}

std::string_view ReportScript() { return script; }
