// The control's own spelling of a document: upper-case tags, unquoted values where they can be, styles as upper-case properties with
// Z-INDEX first, a line break before block elements. Reading what this writes gives the same document, and writing that the same text.
"use strict";

window.pondera = {};

pondera.spelling = (() => {
    const kBreakBefore = new Set(("ADDRESS ARTICLE ASIDE BLOCKQUOTE BODY CAPTION CENTER COL COLGROUP DD DIV DL DT FIELDSET FIGCAPTION " +
        "FIGURE FOOTER FORM H1 H2 H3 H4 H5 H6 HEADER HR LI MAIN NAV OL P PRE SECTION TABLE TBODY TD TFOOT TH THEAD TR UL").split(" "));
    const kVoid = new Set(("AREA BASE BASEFONT BGSOUND BR COL EMBED FRAME HR IMG INPUT KEYGEN LINK META PARAM SOURCE TRACK WBR").split(" "));
    const kRawText = new Set("SCRIPT STYLE XMP IFRAME NOEMBED NOFRAMES PLAINTEXT".split(" "));
    const kHtml = "http://www.w3.org/1999/xhtml";
    const kLinks = new Set("href src background name action data poster srcset longdesc".split(" "));
    const kAlwaysQuoted = new Set("href src style content".split(" "));

    const reference = { "§": "&sect;", "ç": "&ccedil;", "\\": "&#92;", "\u00a0": "&nbsp;", "\r": "&#13;", "&": "&amp;", "<": "&lt;", ">": "&gt;" };

    function text(data) {
        return data.replace(/[§ç\\\u00a0\r&<>]/g, c => reference[c]);
    }

    // The declarations of a style value; quotes, brackets and comments may hold semicolons.
    function declarations(value) {
        const parts = [];
        let quote = "", depth = 0, from = 0;
        for (let i = 0; i < value.length; ++i) {
            const c = value[i];
            if (c === "\\") ++i;
            else if (quote) quote = c === quote ? "" : quote;
            else if (c === '"' || c === "'") quote = c;
            else if (c === "/" && value[i + 1] === "*") i = (value.indexOf("*/", i + 2) + 1) || value.length;
            else if (c === "(") ++depth;
            else if (c === ")") depth = Math.max(0, depth - 1);
            else if (c === ";" && !depth) {
                parts.push(value.slice(from, i));
                from = i + 1;
            }
        }
        parts.push(value.slice(from));
        return parts;
    }

    // Properties of a style value in their order, as [name, value].
    function styleProperties(value) {
        const properties = [];
        for (const part of declarations(value)) {
            const colon = part.indexOf(":");
            if (colon < 1) continue;
            const name = part.slice(0, colon).trim();
            const rest = part.slice(colon + 1).trim();
            if (name && rest) properties.push([name.startsWith("--") ? name : name.toUpperCase(), rest]);
        }
        return properties;
    }

    function styleText(properties) {
        const level = properties.filter(p => p[0] === "Z-INDEX");
        const others = properties.filter(p => p[0] !== "Z-INDEX");
        return [...level, ...others].map(p => p[0] + ": " + p[1]).join("; ");
    }

    const isImportant = value => /!\s*important$/i.test(value);

    // Of a property that is written twice the last one counts, or the last important one.
    function styleProperty(properties, name) {
        const own = properties.filter(p => p[0] === name);
        return own.findLast(p => isImportant(p[1])) || own[own.length - 1];
    }

    // Sets properties of an element's style attribute and keeps all others, known to the browser or not; null removes one.
    function setStyle(element, changes) {
        let properties = styleProperties(element.getAttribute("style") || "");
        for (const [key, value] of Object.entries(changes)) {
            const name = key.toUpperCase();
            const old = styleProperty(properties, name);
            properties = properties.filter(p => p[0] !== name || (p === old && value !== null));
            if (value === null) continue;
            if (old) old[1] = value + (isImportant(old[1]) ? " !important" : "");
            else properties.push([name, String(value)]);
        }
        const value = styleText(properties);
        if (value) element.setAttribute("style", value);
        else element.removeAttribute("style");
    }

    // Sets an attribute whatever its name is: pages that people wrote by hand have some that the browser takes from text only.
    function setAttribute(element, name, value) {
        try {
            element.setAttribute(name, value);
        } catch {
            const template = document.createElement("template");
            template.innerHTML = "<i " + name + ">";
            const attribute = document.importNode(template.content.firstChild.attributes[0], true);
            attribute.value = value;
            element.setAttributeNode(attribute);
        }
    }

    function styleValue(element, key) {
        const property = styleProperty(styleProperties(element.getAttribute("style") || ""), key.toUpperCase());
        return property ? property[1] : "";
    }

    function attributeText(name, value) {
        let escaped;
        if (kLinks.has(name)) {
            escaped = value.replace(/[\u00a0&<>]/g, c => reference[c]);
        } else if (name.startsWith("on")) {
            escaped = value.replace(/[\\\u00a0&<>]/g, c => reference[c]);
        } else {
            escaped = text(name === "style" ? styleText(styleProperties(value)) || value : value);
        }
        if (value === "" || kAlwaysQuoted.has(name) || /[\s\ue0f0"'<>`]/.test(value)) {
            escaped = '"' + escaped.replace(/"/g, "&quot;").replace(/\r/g, "&#13;").replace(/\n/g, "&#10;") + '"';
        }
        return " " + name + "=" + escaped;
    }

    const endsInWord = node => !!node && (node.nodeType === Node.TEXT_NODE ? /\S$/.test(node.data) : node.nodeType === Node.ELEMENT_NODE);

    // A line break is written only where it cannot be seen: not in preformatted text, and not beside letters before a block that flows as a
    // word does or that stands outside the flow.
    function breaksBefore(element) {
        const parent = element.parentElement;
        if (parent && parent.localName === "head") return true;
        if (!kBreakBefore.has(element.tagName.toUpperCase())) return false;
        if (!element.isConnected || !parent) return true;
        if (/^(pre|break)/.test(getComputedStyle(parent).whiteSpace)) return false;
        const style = getComputedStyle(element);
        if (style.display.startsWith("inline")) return false;
        const inFlow = style.float === "none" && !["absolute", "fixed"].includes(style.position) && !["none", "contents"].includes(style.display);
        return inFlow || !endsInWord(element.previousSibling);
    }

    function endsWithBreak(out) {
        for (let i = out.length - 1; i >= 0; --i) {
            const piece = out[i];
            for (let j = piece.length - 1; j >= 0; --j) {
                if (piece[j] === "\n") return true;
                if (piece[j] !== " " && piece[j] !== "\t" && piece[j] !== "\r") return false;
            }
        }
        return true;
    }

    function writeChildren(node, out) {
        for (let child = node.firstChild; child; child = child.nextSibling) write(child, out);
    }

    function write(node, out) {
        if (node.nodeType === Node.TEXT_NODE) {
            const parent = node.parentNode;
            const raw = parent && kRawText.has(parent.nodeName) && parent.namespaceURI === kHtml;
            out.push(raw ? node.data : text(node.data));
            return;
        }
        if (node.nodeType === Node.COMMENT_NODE) {
            out.push("<!--" + node.data + "-->");
            return;
        }
        if (node.nodeType === Node.DOCUMENT_TYPE_NODE) {
            out.push(new XMLSerializer().serializeToString(node));
            return;
        }
        if (node.nodeType !== Node.ELEMENT_NODE || node === pondera.frameHost) return;
        const foreign = node.namespaceURI !== kHtml;
        const tag = foreign ? node.tagName : node.tagName.toUpperCase();
        if (breaksBefore(node) && !endsWithBreak(out)) out.push("\n");
        let start = "<" + tag;
        for (const attribute of node.attributes) start += attributeText(attribute.name, attribute.value);
        out.push(start + ">");
        if (kVoid.has(tag)) return;
        if (tag === "TEMPLATE") writeChildren(node.content, out);
        if ((tag === "PRE" || tag === "TEXTAREA" || tag === "LISTING") && node.firstChild &&
            node.firstChild.nodeType === Node.TEXT_NODE && node.firstChild.data.startsWith("\n")) {
            out.push("\n");
        }
        writeChildren(node, out);
        out.push("</" + tag + ">");
    }

    // The markup of one node, or of all children with outer = false.
    function markup(node, outer = true) {
        const out = [];
        if (outer) write(node, out);
        else writeChildren(node, out);
        return pondera.serverScript.show(out.join("").replace(/^\n/, ""));
    }

    // The whole document; what stands before and after the HTML element (document type, comments) is handed in.
    function documentMarkup(prolog, epilog) {
        const out = prolog ? [prolog, "\n"] : [];
        const html = document.documentElement;
        let start = "<HTML";
        for (const attribute of html.attributes) start += attributeText(attribute.name, attribute.value);
        out.push(start + ">");
        for (let child = html.firstChild; child; child = child.nextSibling) {
            if (child.localName === "head") out.push("\n");
            write(child, out);
        }
        out.push("</HTML>", epilog);
        return out.join("");
    }

    return { markup, documentMarkup, styleProperties, setStyle, styleValue, setAttribute };
})();
