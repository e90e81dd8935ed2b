#include "page/page_parts.hpp"

#include "page/pack.hpp"

namespace ast::recording::astdump {

namespace {

// The policy lets nothing be loaded and no script run but those below, which it knows by their SHA-256.
constexpr char kStart[] = R"html(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="referrer" content="no-referrer">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'; script-src )html";

constexpr char kPolicyEnd[] = R"html(">
<base target="_blank">
<title>ASTERIX recording</title>
)html";

// The places of the plan and of the search, which the scripts fill.
constexpr char kTop[] = R"html(<div class="top">
<h1>ASTERIX recording</h1>
<p class="summary"></p>
<form class="search" role="search">
<input type="search" placeholder="Callsign, address, code or track" aria-label="Search by callsign, address, code or track number" autocomplete="off" spellcheck="false">
<button type="button" class="back" aria-label="Previous record found" disabled>&#x2191;</button>
<button type="submit" class="on" aria-label="Next record found" disabled>&#x2193;</button>
<output aria-live="polite"></output>
<ol hidden></ol>
</form>
</div>
<section class="plan" aria-label="Plan of positions" hidden>
<div class="map">
<canvas tabindex="0" role="application" aria-label="Plan of positions. Arrow keys move it, plus and minus zoom, 0 shows all of it, N and P choose the next and the previous target, Enter opens its record."></canvas>
<div class="tools">
<button type="button" data-key="+" aria-label="Zoom in">+</button>
<button type="button" data-key="-" aria-label="Zoom out">&#x2212;</button>
<button type="button" data-key="0" aria-label="Show all"><svg viewBox="0 0 16 16"><path d="M2 6V2h4M10 2h4v4M14 10v4h-4M6 14H2v-4"/></svg></button>
</div>
<span class="north" aria-hidden="true">N</span>
<details class="legend" open><summary>Layers</summary><div class="layers"></div></details>
<p class="readout" aria-live="polite"></p>
<div class="tip" hidden></div>
</div>
<div class="clock">
<button type="button" class="play" aria-label="Play"><svg viewBox="0 0 16 16"><path class="go" d="M4 2l10 6-10 6z"/><path class="stop" d="M3 2h4v12H3zM9 2h4v12H9z"/></svg></button>
<span class="track"><svg viewBox="0 0 240 1" preserveAspectRatio="none" aria-hidden="true"><path/></svg><input type="range" aria-label="Time of day, UTC"></span>
<output></output>
<label>Shown <select class="span">
<option value="5">5 s</option><option value="15">15 s</option><option value="30">30 s</option><option value="60">1 min</option>
<option value="300">5 min</option><option value="900">15 min</option><option value="Infinity" selected>all before</option>
</select></label>
<label>Speed <select class="rate">
<option value="1">1&#xD7;</option><option value="2">2&#xD7;</option><option value="5">5&#xD7;</option><option value="10">10&#xD7;</option>
<option value="30">30&#xD7;</option><option value="60">60&#xD7;</option><option value="300">300&#xD7;</option>
</select></label>
<label><input type="checkbox" class="labels" checked> Labels</label>
<label><input type="checkbox" class="trails" checked> Trails</label>
</div>
<p class="note"></p>
</section>
)html";

} // namespace

std::string page_head() {
    static const std::string head =
        kStart + std::string(page_script_hashes()) + kPolicyEnd + "<style>" + page_style() +
        "</style>\n<script type=\"text/plain\">" + pack(page_script()) + "</script><script>" + page_boot() +
        "</script>\n</head>\n<body>\n" + kTop +
        "<noscript>What is inside the blocks, and where things are, is shown by a script of this page, which has to "
        "be allowed to run.</noscript>\n<main>\n";
    return head;
}

} // namespace ast::recording::astdump
