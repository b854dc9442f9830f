#!/usr/bin/env python3
"""Every link and picture of the pages leads somewhere: the file is there and tracked, and so is the heading.

    Scripts/check-links.py

Addresses beyond this tree are not asked.
"""

import os
import re
import subprocess
import sys

ROOT = os.path.realpath(os.path.join(os.path.dirname(__file__), '..'))
os.chdir(ROOT)


def tracked(*patterns):
    return subprocess.run(['git', 'ls-files', '-z', '--', *patterns], check=True, capture_output=True,
                          text=True).stdout.split('\0')[:-1]


def without_code(text):
    return re.sub(r'^```.*?^```$', '', text, flags=re.S | re.M)


def headings(text):
    """As they are spelled behind a "#"."""
    return {re.sub(r'[^\w\- ]', '', line.lower()).replace(' ', '-')
            for line in re.findall(r'^#+ (.*)$', text, re.M)}


PAGES = {page: without_code(open(page, encoding='utf-8').read()) for page in tracked('*.md')}
FILES = set(tracked())
FOLDERS = {os.path.dirname(file) for file in FILES}
links = 0
lost = []
for page, text in PAGES.items():
    for link in re.findall(r'\]\(([^)\s]+)\)', text):
        links += 1
        if re.match(r'[a-z]+:', link):
            continue
        path, _, heading = link.partition('#')
        file = os.path.normpath(os.path.join(os.path.dirname(page), path)) if path else page
        if file not in FILES and file not in FOLDERS:
            lost.append(f'{page}: {link} is not there')
        elif heading and heading not in headings(PAGES.get(file, '')):
            lost.append(f'{page}: {link} has no such heading')
if not links:
    lost.append('no page has a link')
print('\n'.join(lost), end='\n' if lost else '', file=sys.stderr)
sys.exit(1 if lost else 0)
