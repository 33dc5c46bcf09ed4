"""Settings of the documentation site. scripts/docs runs Sphinx with them."""

import os
from pathlib import Path
from xml.etree import ElementTree

from sphinx.util import logging

project = "kivo"
author = "The kivo maintainers"
copyright = "2026, The kivo maintainers"
version = release = os.environ["KIVO_VERSION"]

extensions = ["myst_parser", "breathe", "sphinx_copybutton"]
root_doc = "index"
nitpicky = True
smartquotes = False  # two dashes are part of an option
highlight_language = "cpp"

# The documents link to headings as forges do.
myst_heading_anchors = 4

breathe_projects = {"kivo": os.environ["KIVO_DOXYGEN_XML"]}
breathe_default_project = "kivo"
breathe_domain_by_extension = {"h": "cpp"}
breathe_show_include = False
# Names without an entry: namespaces, the standard library, and what tools cannot use.
nitpick_ignore_regex = [("cpp:identifier", r"kivo|stratum2|BEDROCK|std(::.*)?|INT_MAX"),
                        ("cpp:identifier", "OptionDescription|implementation_defined")]

html_theme = "furo"
pygments_style = "default"
pygments_dark_style = "github-dark"
html_title = f"kivo {release}"
html_favicon = "icon.svg"
html_static_path = ["site.css"]
html_css_files = ["site.css"]
html_copy_source = False
html_show_sourcelink = False

# Only the commands of a conversation are copied, without their prompts.
copybutton_prompt_text = "$ "


def names_in_headers():
    """The names that Doxygen has found in the namespaces of the public headers."""
    for path in Path(os.environ["KIVO_DOXYGEN_XML"]).glob("namespace*.xml"):
        namespace = ElementTree.parse(path).find("compounddef")
        yield from (inner.text for inner in namespace.findall("innerclass"))
        yield from (name.text for name in namespace.findall("sectiondef/memberdef/qualifiedname"))


def find_missing_names(_, environment):
    shown = {name for name, *_ in environment.get_domain("cpp").get_objects()}
    for name in sorted(set(names_in_headers()) - shown):
        logging.getLogger(__name__).warning("%s is on no page below docs/site/reference", name)


def setup(app):
    app.connect("env-check-consistency", find_missing_names)
