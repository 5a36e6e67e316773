#!/usr/bin/env python3
"""The interface document of the example in a browser: on a screen in light and dark, on a phone, and in print.

  document_test.py ZBC PROJECT BROWSER PDFTOTEXT FOLDER

The pictures and the print are left in FOLDER.
"""
import pathlib
import re
import subprocess
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from browser import Browser  # noqa: E402

PHONE_WIDTH = 390

# Contrast of a text to what is under it, as the guidelines for accessible pages compute it.
LEAST_CONTRAST = """(() => {
  const light = colour => {
    const parts = colour.match(/[0-9.]+/g).slice(0, 3).map(Number)
      .map(part => part / 255).map(part => part <= 0.03928 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4);
    return 0.2126 * parts[0] + 0.7152 * parts[1] + 0.0722 * parts[2];
  };
  const ground = element => {
    for (let at = element; at; at = at.parentElement) {
      const colour = getComputedStyle(at).backgroundColor;
      if (!/, 0\\)$/.test(colour) && colour !== 'transparent') return colour;
    }
    return 'rgb(255, 255, 255)';
  };
  let least = {contrast: 99};
  for (const element of document.querySelectorAll('body *')) {
    if (element.localName === 'title') continue; // not drawn
    if (![...element.childNodes].some(node => node.nodeType === 3 && node.data.trim())) continue;
    const isDrawn = element.namespaceURI.endsWith('svg');
    const pair = [light(getComputedStyle(element)[isDrawn ? 'fill' : 'color']), light(ground(element))].sort();
    const contrast = (Math.max(...pair) + 0.05) / (Math.min(...pair) + 0.05);
    if (contrast < least.contrast) least = {contrast, text: element.textContent.trim().slice(0, 40)};
  }
  return least;
})()"""

BROKEN_LINKS = """[...document.querySelectorAll('a')]
  .map(link => link.getAttribute('href') ?? link.getAttribute('xlink:href') ?? '')
  .filter(target => !target.startsWith('#') || !document.getElementById(decodeURIComponent(target.slice(1))))"""


class DocumentInABrowser(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.page = cls.folder / "Document.html"
        subprocess.run([cls.zbc, "document", cls.project, "-o", cls.page], check=True, stdout=subprocess.DEVNULL)
        cls.browser = Browser(cls.program)

    @classmethod
    def tearDownClass(cls):
        cls.browser.__exit__()

    def see(self, width, height, scheme, name, is_phone=False):
        self.browser.look(width, height, scheme, is_phone)
        self.browser.open(self.page)
        self.browser.picture(self.folder / (name + ".png"))
        self.assertEqual(self.browser.complaints(), [])

    def colours(self):
        return self.browser.value("""(style => [style.color, style.backgroundColor])(getComputedStyle(document.body))""")

    def test_light_and_dark_have_colours_of_their_own_that_can_be_read(self):
        seen = []
        for scheme in ("light", "dark"):
            self.see(1240, 900, scheme, scheme)
            seen.append(self.colours())
            least = self.browser.value(LEAST_CONTRAST)
            self.assertGreaterEqual(least["contrast"], 4.5, (scheme, least))
        (light_ink, light_paper), (dark_ink, dark_paper) = seen
        self.assertNotEqual(light_ink, dark_ink)
        self.assertNotEqual(light_paper, dark_paper)

    def test_a_phone_scrolls_only_downwards(self):
        self.see(PHONE_WIDTH, 844, "light", "phone", is_phone=True)
        self.assertEqual(self.browser.value("window.innerWidth"), PHONE_WIDTH)
        self.assertLessEqual(self.browser.value("document.documentElement.scrollWidth"), PHONE_WIDTH)
        # What is wider scrolls in a box of its own.
        outside = self.browser.value(
            "[...document.querySelectorAll('body *')].filter(e => !e.closest('.scroll') && "
            f"e.getBoundingClientRect().right > {PHONE_WIDTH} + 0.5).map(e => e.outerHTML.slice(0, 80))")
        self.assertEqual(outside, [])
        for section, name in (("section, h2", "phone-section"), ("svg", "phone-chart")):
            self.browser.value(f"document.querySelectorAll({section!r})[1]?.scrollIntoView()")
            self.browser.picture(self.folder / (name + ".png"))

    def test_every_link_leads_to_a_place_in_the_document(self):
        self.see(1240, 900, "light", "links")
        self.assertGreater(self.browser.value("document.querySelectorAll('a').length"), 50)
        self.assertEqual(self.browser.value(BROKEN_LINKS), [])
        self.assertEqual(self.browser.value("document.querySelectorAll('[src], link, script, iframe').length"), 0)

    def test_the_print_has_pages_with_numbers(self):
        self.see(1240, 900, "dark", "before-print")
        print_out = self.folder / "Document.pdf"
        self.browser.print(print_out)
        text = subprocess.run([self.pdftotext, "-layout", print_out, "-"], check=True, capture_output=True,
                              text=True).stdout
        pages = text.rstrip("\f").split("\f")
        self.assertGreater(len(pages), 3)
        for number, page in enumerate(pages, 1):
            last = [line for line in page.splitlines() if line.strip()][-1].strip()
            self.assertEqual(last, f"{number} / {len(pages)}")
        self.assertEqual(len(re.findall(rb"/Type\s*/Page\b", print_out.read_bytes())), len(pages))

    def test_the_print_loses_no_item(self):
        self.see(1240, 900, "light", "whole")
        names = self.browser.value("[...document.querySelectorAll('td:first-child')].map(cell => cell.textContent.trim())")
        print_out = self.folder / "Names.pdf"
        self.browser.print(print_out)
        text = subprocess.run([self.pdftotext, print_out, "-"], check=True, capture_output=True, text=True).stdout
        printed = re.sub(r"\s", "", text)
        self.assertGreater(len(names), 50)
        self.assertEqual([name for name in names if name and name.split()[0] not in printed], [])


if __name__ == "__main__":
    if len(sys.argv) != 6:
        sys.exit(__doc__)
    DocumentInABrowser.zbc, DocumentInABrowser.project, DocumentInABrowser.program, DocumentInABrowser.pdftotext, folder = sys.argv[1:]
    DocumentInABrowser.folder = pathlib.Path(folder)
    DocumentInABrowser.folder.mkdir(parents=True, exist_ok=True)
    unittest.main(argv=sys.argv[:1])
