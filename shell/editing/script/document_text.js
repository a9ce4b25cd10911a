// The document as a whole: taken from text, given back as text, replaced, and changed at its end or at the selection.
"use strict";

pondera.documentText = (() => {
    const spelling = pondera.spelling;
    const selection = pondera.selection;
    let prolog = "", epilog = "";  // what stands before and after the HTML element

    function outside(parsed) {
        const parts = ["", ""];
        let after = 0;
        for (const node of parsed.childNodes) {
            if (node === parsed.documentElement) after = 1;
            else parts[after] += spelling.markup(node);
        }
        return parts;
    }

    function setOutside(value) {
        [prolog, epilog] = value;
    }

    function parse(text) {
        const parsed = new DOMParser().parseFromString(pondera.serverScript.hide(text), "text/html");
        // Nothing can end a PLAINTEXT: what is written behind it would become part of it.
        for (const element of parsed.querySelectorAll("plaintext")) {
            const pre = parsed.createElement("pre");
            pre.append(...element.childNodes);
            element.replaceWith(pre);
        }
        return parsed;
    }

    function syncAttributes(target, source) {
        for (const { name } of [...target.attributes]) if (!source.hasAttribute(name)) target.removeAttribute(name);
        for (const { name, value } of source.attributes) if (target.getAttribute(name) !== value) spelling.setAttribute(target, name, value);
    }

    // Makes the children of `target` equal to those of `source`, leaving those at both ends alone that are equal already.
    function syncChildren(target, source) {
        const old = [...target.childNodes].filter(n => n !== pondera.frameHost), now = [...source.childNodes];
        let head = 0, tail = 0;
        while (head < old.length && head < now.length && old[head].isEqualNode(now[head])) ++head;
        while (tail < old.length - head && tail < now.length - head && old[old.length - 1 - tail].isEqualNode(now[now.length - 1 - tail])) ++tail;
        for (const node of old.slice(head, old.length - tail)) node.remove();
        const before = tail ? old[old.length - tail] : target === document.documentElement ? pondera.frameHost : null;
        for (const node of now.slice(head, now.length - tail)) target.insertBefore(document.adoptNode(node), before || null);
    }

    function setDocument(parsed) {
        const html = document.documentElement;
        syncAttributes(html, parsed.documentElement);
        if (document.head && document.body && parsed.head && parsed.body && document.body.localName === parsed.body.localName) {
            syncAttributes(document.head, parsed.head);
            syncChildren(document.head, parsed.head);
            syncAttributes(document.body, parsed.body);
            syncChildren(document.body, parsed.body);
        } else {
            syncChildren(html, parsed.documentElement);
        }
    }

    function load(text) {
        selection.select(null);
        const parsed = parse(text);
        setOutside(outside(parsed));
        const html = document.documentElement;
        for (const { name } of [...html.attributes]) html.removeAttribute(name);
        syncAttributes(html, parsed.documentElement);
        html.replaceChildren(...[...parsed.documentElement.childNodes].map(n => document.adoptNode(n)));
        document.designMode = "on";
        document.execCommand("styleWithCSS", false, false);
        document.execCommand("defaultParagraphSeparator", false, "p");
        selection.attachFrame();
        pondera.history.reset();
        caretToStart();
        scrollTo(0, 0);
        return true;
    }

    function replace(text) {
        pondera.history.step("replace", () => {
            const element = selection.control();
            const name = element && element.getAttribute("name");
            const parsed = parse(text);
            pondera.history.recordValue(setOutside, [prolog, epilog], outside(parsed));
            setDocument(parsed);
            if (element && !element.isConnected) selection.select(name ? named(name) : null);
        });
        selection.placeFrame();
        return true;
    }

    function fragment(markup) {
        const template = document.createElement("template");
        template.innerHTML = markup;
        return document.importNode(template.content, true);
    }

    function named(name) {
        return selection.selectable().find(e => e.getAttribute("name") === name) || null;
    }

    function selectIn(nodes) {
        for (const node of nodes) {
            if (node.nodeType !== Node.ELEMENT_NODE) continue;
            const found = [node, ...node.querySelectorAll("*")].find(e => selection.pick(e) === e);
            if (found) {
                selection.select(found);
                return found;
            }
        }
        return null;
    }

    // Appends markup to the body within the open step, selects its first element and brings it into view.
    function appendMarkup(markup, adjust) {
        const nodes = [...fragment(markup).childNodes];
        document.body.append(...nodes);
        const element = selectIn(nodes);
        if (element && adjust) adjust(element);
        if (element) element.scrollIntoView({ block: "nearest", inline: "nearest" });
    }

    function pasteAtEnd(markup) {
        pondera.history.step("insert", () => appendMarkup(markup));
        selection.placeFrame();
    }

    function replaceElement(markup) {
        const element = selection.control();
        if (!element) return false;
        replaceNode(element, markup);
        return true;
    }

    function replaceNode(node, markup) {
        pondera.history.step("replace", () => {
            const nodes = [...fragment(markup).childNodes];
            const wasControl = !!selection.control();
            selection.select(null);
            node.replaceWith(...nodes);
            if (wasControl) selectIn(nodes);
        });
        selection.placeFrame();
    }

    function replaceSelection(markup) {
        if (selection.control()) return replaceElement(markup);
        const range = selection.textRange();
        if (!range || range.collapsed) return false;
        pondera.history.step("replace", () => pondera.inserting.insert(markup));
        return true;
    }

    function replaceParent(markup) {
        const element = selection.control();
        const range = selection.textRange();
        if (!element && (!range || range.collapsed)) return false;
        const node = element ? element.closest("a") || element : selection.linkOf(range) || selection.elementOf(range);
        // A cell or list item keeps its place; what is in it is replaced.
        if (node === document.body || node.matches("td, th, tr, tbody, thead, tfoot, caption, li")) return replaceSelection(markup);
        replaceNode(node, markup);
        return true;
    }

    // The first letter of the text; what stands in boxes and fields of its own does not count.
    function firstPlace() {
        const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT | NodeFilter.SHOW_ELEMENT, node => {
            if (node.nodeType === Node.TEXT_NODE) return node.data.trim() ? NodeFilter.FILTER_ACCEPT : NodeFilter.FILTER_SKIP;
            const closed = node.matches("script, style, title, select, textarea, button, noscript, iframe, object") || selection.isPositioned(node);
            return closed ? NodeFilter.FILTER_REJECT : NodeFilter.FILTER_SKIP;
        });
        const node = walker.nextNode();
        return node ? [node, node.data.length - node.data.trimStart().length] : [document.body, 0];
    }

    function caretToStart() {
        selection.select(null);
        if (!document.body) return;
        getSelection().collapse(...firstPlace());
        pondera.history.selectionMoved();
    }

    function caretToEnd() {
        selection.select(null);
        getSelection().selectAllChildren(document.body);
        getSelection().collapseToEnd();
    }

    let keptPlace = null;

    function keepPlace() {
        keptPlace = selection.keep();
    }

    function restorePlace() {
        selection.restore(keptPlace);
    }

    function selectElement(name) {
        const element = named(name);
        if (!element) return false;
        selection.select(element);
        element.scrollIntoView({ block: "nearest" });
        return true;
    }

    return {
        load, replace, pasteAtEnd, appendMarkup, replaceElement, replaceSelection, replaceParent, caretToStart, caretToEnd, keepPlace, restorePlace, selectElement,
        text: () => pondera.serverScript.show(spelling.documentMarkup(prolog, epilog))
    };
})();
