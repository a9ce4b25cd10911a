// What leaves for the clipboard and what comes from it. Markup of our own comes back as it left; markup of other programs loses everything
// but headings, paragraphs, bold and italic, lists, tables and links.
"use strict";

pondera.clipboard = (() => {
    // The key is new at every start of the program, so that no page of the web can pass its markup off as ours.
    const kOwnText = "<!--pondera:text:" + ponderaKey + "-->";
    const kOwnElement = "<!--pondera:element:" + ponderaKey + "-->";
    const kKept = new Set(("P BR H1 H2 H3 H4 H5 H6 B I U S SUB SUP UL OL LI TABLE THEAD TBODY TFOOT TR TD TH CAPTION A IMG BLOCKQUOTE PRE HR")
        .split(" "));
    const kRenamed = { STRONG: "B", EM: "I", INS: "U", STRIKE: "S", DEL: "S", DIV: "P", CENTER: "P", ARTICLE: "P", SECTION: "P", DT: "P", DD: "P" };
    const kDropped = new Set("STYLE SCRIPT META LINK TITLE XML HEAD NOSCRIPT OBJECT EMBED IFRAME TEMPLATE O:P".split(" "));
    const kKeptAttributes = { A: ["href", "title"], IMG: ["src", "alt", "width", "height"], TD: ["colspan", "rowspan", "align"],
        TH: ["colspan", "rowspan", "align"], OL: ["start"] };
    const kFormatting = "font, b, strong, i, em, u, s, strike, sub, sup, span, a, big, small";
    const kBlocks = "P, H1, H2, H3, H4, H5, H6, UL, OL, TABLE, BLOCKQUOTE, PRE, HR";

    // Cleaning happens in a document of its own, where no picture is fetched.
    const inert = document.implementation.createHTMLDocument("");

    function copied() {
        const element = pondera.selection.control();
        if (element) {
            return { html: kOwnElement + pondera.spelling.markup(pondera.commands.withLink(element)), text: element.getAttribute("alt") || element.textContent };
        }
        const range = pondera.selection.textRange();
        if (!range || range.collapsed) return null;
        // The formatting around the letters goes with them.
        let content = range.cloneContents();
        for (let e = pondera.selection.elementOf(range); e && e.matches(kFormatting); e = e.parentElement) {
            const around = e.cloneNode(false);
            around.appendChild(content);
            content = around;
        }
        const holder = document.createElement("div");
        holder.appendChild(content);
        return { html: kOwnText + pondera.spelling.markup(holder, false), text: getSelection().toString() };
    }

    // Lists of office programs are paragraphs that say their level in "mso-list:l0 level2 lfo1" and draw their own bullet.
    function listLevel(paragraph) {
        const match = /mso-list:\s*l\d+\s+level(\d+)/i.exec(paragraph.getAttribute("style") || "");
        return match ? parseInt(match[1], 10) : 0;
    }

    function bulletOf(paragraph) {
        for (const span of paragraph.querySelectorAll("span")) {
            if (/mso-list:\s*ignore/i.test(span.getAttribute("style") || "")) return span;
        }
        return null;
    }

    function restoreLists(root) {
        let open = [];  // the lists that are open, outermost first
        let last = null;
        for (const paragraph of [...root.querySelectorAll("p, h1, h2, h3, h4, h5, h6")]) {
            const level = paragraph.localName === "p" ? listLevel(paragraph) : 0;
            if (!level) {
                open = [];
                continue;
            }
            if (last && last.parentNode !== paragraph.parentNode) open = [];
            const bullet = bulletOf(paragraph);
            const numbered = bullet && /^[\s\u00a0]*\(?([0-9]+|[a-zA-Z]{1,4})[.)]/.test(bullet.textContent);
            if (bullet) bullet.remove();
            open.length = Math.min(open.length, level);
            const holder = paragraph.ownerDocument;
            while (open.length < level) {
                const list = holder.createElement(numbered ? "ol" : "ul");
                const outer = open[open.length - 1];
                if (!outer) paragraph.before(list);
                else (outer.lastElementChild || outer.appendChild(holder.createElement("li"))).appendChild(list);
                open.push(list);
            }
            const item = holder.createElement("li");
            item.append(...paragraph.childNodes);
            open[level - 1].appendChild(item);
            last = open[0];
            paragraph.remove();
        }
    }

    function styleTags(element) {
        const style = (element.getAttribute("style") || "").toLowerCase();
        const tags = [];
        if (/font-weight:\s*(bold|[6-9]00)/.test(style)) tags.push("b");
        if (/font-style:\s*italic/.test(style)) tags.push("i");
        if (/text-decoration[a-z-]*:[^;]*underline/.test(style)) tags.push("u");
        return tags;
    }

    function isPlainWeight(element) {
        return /font-weight:\s*(normal|[1-4]00)/i.test(element.getAttribute("style") || "");
    }

    function attributesOf(source, target, tag) {
        for (const name of kKeptAttributes[tag] || []) {
            const value = source.getAttribute(name);
            if (value !== null && !(name === "href" && /^\s*(javascript|vbscript|data|file):/i.test(value))) target.setAttribute(name, value);
        }
        if (tag === "TABLE") target.setAttribute("border", source.getAttribute("border") === "0" ? "0" : "1");
    }

    function cleanInto(target, source) {
        for (const node of source.childNodes) {
            if (node.nodeType === Node.TEXT_NODE) {
                const inPre = !!(node.parentElement && node.parentElement.closest("pre"));
                target.appendChild(inert.createTextNode(inPre ? node.data : node.data.replace(/[\t\r\n ]+/g, " ")));
                continue;
            }
            if (node.nodeType !== Node.ELEMENT_NODE) continue;
            cleanElement(target, node);
        }
    }

    function cleanElement(target, element) {
        let tag = element.tagName.toUpperCase();
        if (kDropped.has(tag)) return;
        tag = kRenamed[tag] || tag;
        if (tag === "IMG" && !/^https?:/i.test(element.getAttribute("src") || "")) return;
        if ((tag === "B" || tag === "I") && isPlainWeight(element)) tag = "SPAN";
        if (tag === "P" && element.querySelector(kBlocks + ", DIV")) tag = "SPAN";
        if (tag === "P" && target.closest("li, td, th") && element.parentElement.children.length === 1) tag = "SPAN";
        let inner = target;
        if (kKept.has(tag)) {
            const kept = inert.createElement(tag);
            attributesOf(element, kept, tag);
            if (tag === "A" && !kept.hasAttribute("href")) return cleanInto(target, element);
            inner.appendChild(kept);
            inner = kept;
        }
        if (!/^(B|I|U|H[1-6])$/.test(tag)) {
            for (const name of styleTags(element)) inner = inner.appendChild(inert.createElement(name));
        }
        cleanInto(inner, element);
    }

    function dropEmpty(root) {
        for (const element of [...root.querySelectorAll("p, b, i, u, s, a, li, h1, h2, h3, h4, h5, h6")].reverse()) {
            if (!element.textContent.replace(/[\s\u00a0]/g, "") && !element.querySelector("img, br, hr, table")) element.remove();
        }
    }

    function clean(html) {
        const fragment = /<!--StartFragment-->([\s\S]*)<!--EndFragment-->/i.exec(html);
        const parsed = new DOMParser().parseFromString(fragment ? fragment[1] : html, "text/html");
        restoreLists(parsed.body);
        const holder = inert.createElement("div");
        cleanInto(holder, parsed.body);
        dropEmpty(holder);
        return pondera.spelling.markup(holder, false).trim();
    }

    function textMarkup(text) {
        const holder = document.createElement("div");
        // Blanks and tabs that a page would fold are kept to the eye.
        text = text.replace(/\t/g, "    ").replace(/ {2,}/g, blanks => " " + "\u00a0".repeat(blanks.length - 1));
        const lines = text.replace(/\r\n?/g, "\n").replace(/\n+$/, "").split("\n");
        if (lines.length === 1) {
            holder.textContent = lines[0];
            return holder.innerHTML;
        }
        return lines.map(line => {
            holder.textContent = line;
            return "<P>" + (holder.innerHTML || "<BR>") + "</P>";
        }).join("");
    }

    function insert(markup) {
        if (!markup) return;
        if (pondera.selection.control() || !pondera.selection.textRange()) pondera.documentText.caretToEnd();
        pondera.inserting.insert(markup);
    }

    // A copied element comes back a little beside the place that it was copied from.
    function insertElement(markup) {
        const probe = inert.createElement("div");
        probe.innerHTML = markup;
        if (!/absolute|fixed/i.test(probe.innerHTML)) {
            insert(markup);
            return;
        }
        pondera.documentText.appendMarkup(markup, element => {
            const left = parseFloat(pondera.spelling.styleValue(element, "LEFT")), top = parseFloat(pondera.spelling.styleValue(element, "TOP"));
            if (!pondera.selection.isPositioned(element) || isNaN(left) || isNaN(top)) return;
            pondera.spelling.setStyle(element, { left: left + 16 + "px", top: top + 16 + "px", "z-index": pondera.commands.nextLevel() });
        });
    }

    function paste(html, text) {
        pondera.history.step("paste", () => {
            const element = html.indexOf(kOwnElement), own = html.indexOf(kOwnText);
            if (element >= 0) insertElement(ownPart(html, element + kOwnElement.length));
            else if (own >= 0) insert(ownPart(html, own + kOwnText.length));
            else insert((html && clean(html)) || textMarkup(text));
        });
        pondera.selection.placeFrame();
    }

    const ownPart = (html, from) => html.slice(from).replace(/<!--EndFragment-->[\s\S]*$/i, "").replace(/<\/body>\s*<\/html>\s*$/i, "");

    function pasteText(text) {
        pondera.history.step("paste", () => insert(textMarkup(text)));
    }

    return { copied, paste, pasteText, clean };
})();
