"""What a sweep has found: line by line, as a table, as JSON, and as a page with colours."""

import collections
import dataclasses
import html
import json

import sweeps

COLOURS = {sweeps.DONE: "#1d6b3a", sweeps.REFUSED: "#27548a", sweeps.ENDED: "#5b4a8a",
           sweeps.PRESCRIBED: "#7a6a1d", sweeps.NOTHING: "#555555"}
FAILURE = "#a3242a"


def tell(result):
    print(f"{result.cell}: {result.verdict}, {result.detail} ({result.seconds:.1f} s)", flush=True)


def tell_counts(session, counts):
    """How often each call of the plug-in's came in a session."""
    print(f"{session}: {sum(counts.values())} calls: " + ", ".join(f"{count} {call}" for call, count in counts.items()),
          flush=True)


def table(results):
    """How many cells of each row ended how, then the failures with the ids that run them again."""
    rows = collections.OrderedDict()
    for result in results:
        rows.setdefault(result.title, collections.Counter())[result.verdict] += 1
    width = max((len(title) for title in rows), default=0)
    print()
    for title, counts in rows.items():
        print(f"{title:{width}}  " + ", ".join(f"{count} {verdict}" for verdict, count in counts.items()))
    total = collections.Counter(result.verdict for result in results)
    print(f"\n{len(results)} cells: " + ", ".join(f"{count} {verdict}" for verdict, count in total.items()))
    for result in results:
        if result.failed:
            print(f"Failed: --cell {result.cell} ({result.verdict}: {result.detail})")


def write_json(name, results):
    with open(name, "w", encoding="utf-8") as file:
        for result in results:
            file.write(json.dumps(dict(dataclasses.asdict(result), failed=result.failed)) + "\n")


def write_html(name, results):
    cells = "\n".join(
        f'<tr style="background:{FAILURE if result.failed else COLOURS[result.verdict]}"><td>{html.escape(result.cell)}'
        f"<td>{html.escape(result.title)}<td>{result.verdict}<td>{html.escape(result.detail)}"
        f"<td>{result.seconds:.1f}" for result in results)
    with open(name, "w", encoding="utf-8") as file:
        file.write('<!doctype html><meta charset="utf-8"><title>headunit-sweep</title>\n'
                   "<style>body{background:#1b1c1e;color:#eee;font:15px sans-serif}"
                   "td,th{padding:3px 10px;text-align:left}</style>\n"
                   "<table><tr><th>cell<th>fault<th>ended<th>with<th>seconds\n" + cells + "</table>\n")
