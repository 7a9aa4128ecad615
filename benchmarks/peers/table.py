"""The figures of the programs as a table in Markdown."""

# What is measured: key, heading, decimals.
FIGURES = (
    ("first_large", "First picture, 24 MP (ms)", 0),
    ("first_small", "First picture, 800x600 (ms)", 0),
    ("next_rested", "Next picture after a second (ms)", 0),
    ("next_hasty", "Next picture at once (ms)", 0),
    ("memory", "Most memory (MB)", 0),
    ("thumbnails", "200 thumbnails (s)", 1),
)
# The program that the others are measured by.
REFERENCE = "feh"
# The one that makes thumbnails.
THUMBNAILS = "vipsthumbnail"


def cell(values, reference, key, decimals):
    """A value and how many times the reference's it is; "-" for what a program does not do."""
    if key not in values:
        return "-"
    text = f"{values[key]:,.{decimals}f}"
    return f"{text} ({values[key] / reference[key]:.2f})" if key in reference else text


def render(medians):
    """The table of {program: {figure: value}}, and the comparison that counts most in a line of its own."""
    reference = medians[REFERENCE]
    lines = ["| | " + " | ".join(heading for _, heading, _ in FIGURES) + " |", "|---" * (len(FIGURES) + 1) + "|"]
    for name, values in medians.items():
        cells = [cell(values, reference, key, decimals) for key, _, decimals in FIGURES]
        lines.append(f"| {name} | " + " | ".join(cells) + " |")
    first = medians["Panorell"]["first_large"]
    lines += ["", f"first picture: Panorell {first:.0f} ms = {first / reference['first_large']:.2f} x {REFERENCE}"]
    ours, theirs = medians["Panorell"]["thumbnails"], medians[THUMBNAILS]["thumbnails"]
    lines += [f"thumbnails: Panorell {ours:.1f} s, {theirs / ours:.2f} times as fast as {THUMBNAILS}"]
    return "\n".join(lines)
