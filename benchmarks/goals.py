#!/usr/bin/env python3
"""goals.py JSON: the figures of ./bench that have a goal as a table in Markdown; "-" where one was not measured."""

import json
import re
import sys

# Heading, what the figures' names match, unit, goal. Of several figures the highest counts.
GOALS = (
    ("`R=1` to first picture, 24 megapixels", "start_to_first_picture_24_megapixels", "ms", "see `./bench peers`"),
    ("`R=1` to first picture, 800x600", "start_to_first_picture_800x600", "ms", "130"),
    ("Set-up window complete with preview", "start_to_setup_with_preview_800x600", "ms", "200 to 300"),
    ("`Run` to picture", "run_to_picture_24_megapixels", "ms", "25"),
    ("Decoding 24 megapixels and scaling them to 1920x1080", "decode_24_megapixels", "ms", "72"),
    ("Most memory over 500 pictures of 24 megapixels", "memory_peak_500_pictures", "MB", "see `./bench peers`"),
    ("Step with effect \"A\", tick to idle, 1920x1080", "step_effect_a_24_megapixels", "ms", "4"),
    ("Both lists of a folder with 10,000 pictures", "lists_of_10000_files", "ms", "150"),
    ("Longest step of any effect, 1920x1080", "effects_1920x1080_._step_max", "ms", "8"),
    ("Longest step of any effect, 3840x2160", "effects_3840x2160_._step_max", "ms", "8"),
    ("Longest last step with its whole copy, 1920x1080", "effects_1920x1080_._end", "ms", "8"),
    ("Longest last step with its whole copy, 3840x2160", "effects_3840x2160_._end", "ms", "8"),
    ("Longest effect in percent of its steps, 1920x1080", "effects_1920x1080_._duration", "%", "97 to 103"),
    ("Longest effect in percent of its steps, 3840x2160", "effects_3840x2160_._duration", "%", "97 to 103"),
    ("Colours of 1920x1080 pixels by the own rule", "colour_1920x1080_by_rule", "ms", "15"),
    ("Colours of 1920x1080 pixels by the system", "colour_1920x1080_by_system", "ms", "240"),
)


def cell(figures, pattern, unit):
    """The highest of the values whose names match, and which one that is where there are several."""
    values = {name: value for name, value in figures.items() if re.fullmatch(pattern, name)}
    if not values:
        return "-"
    name = max(values, key=values.get)
    text = f"{values[name]:.1f} {unit}"
    # An effect is called by its letter.
    return f"{text} (\"{name.split('_')[2]}\")" if len(values) > 1 else text


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        figures = {figure["name"]: figure["value"] for figure in json.load(file)}
    print("| Figure | Value | Goal |\n|---|---|---|")
    for heading, pattern, unit, goal in GOALS:
        print(f"| {heading} | {cell(figures, pattern, unit)} | {goal} |")


if __name__ == "__main__":
    main()
