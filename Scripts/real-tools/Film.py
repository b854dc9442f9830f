"""The pictures of a loop, in a row: what was typed, what reached the model, what was filed. Each shows the
words as they stand in the run's own records. Needs ImageMagick; without it no film is made."""

import json
import re
import shutil
import subprocess
import textwrap

WIDTH = 86  # characters
PIXELS = 900
DARK = "#1d1f21"


def available():
    return shutil.which("convert") is not None and shutil.which("import") is not None


def draw(file, title, text):
    lines = [wrapped for line in text.splitlines()
             for wrapped in textwrap.wrap(line, WIDTH, replace_whitespace=False, subsequent_indent="    ") or [""]]
    words = "\n".join(lines).replace("\\", "\\\\").replace("%", "%%")
    # All of one width, so that they stand below one another as the windows do.
    subprocess.run(
        ["convert", "-background", DARK, "-fill", "#8b98a5", "-font", "DejaVu-Sans-Mono", "-pointsize", "13",
         f"label:{title}\n ", "-fill", "#e6e6e6", "-pointsize", "15", "-interline-spacing", "3", f"label:{words}",
         "-gravity", "NorthWest", "-append", "-extent", f"{PIXELS - 48}x", "-bordercolor", DARK, "-border", "24x20",
         "+repage", "-depth", "8", "-strip", str(file)], check=True)


def texts(value):
    """Every text in a request, in order."""
    if isinstance(value, str):
        yield value
    elif isinstance(value, list):
        for each in value:
            yield from texts(each)
    elif isinstance(value, dict):
        for each in value.values():
            yield from texts(each)


def told(requests):
    """What the hook said, as it stands in the first request that holds it."""
    for line in requests:
        said = [block for text in texts(line["request"].get("messages") or line["request"].get("input"))
                for block in re.findall(r"<(wendlow-\w+)>\n(.*?)</\1>", text, re.S)]
        if said:
            return "\n".join(f"<{tag}>\n{text.strip()}\n</{tag}>" for tag, text in dict(said).items())
    return "nothing"


def filed(requests):
    """The call that the model made, and what came back to it."""
    for line in requests:
        for message in line["request"].get("messages", []):
            parts = message["content"] if isinstance(message["content"], list) else []
            for part in parts:
                if part.get("type") == "tool_result":
                    call = next(one for other in line["request"]["messages"] if isinstance(other["content"], list)
                                for one in other["content"] if one.get("id") == part["tool_use_id"])
                    answer = part["content"] if isinstance(part["content"], str) else part["content"][0]["text"]
                    return f"{call['name']}\n{json.dumps(call['input'], indent=2, ensure_ascii=False)}\n\n→ {answer}"
    return "nothing"
