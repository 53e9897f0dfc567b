'use strict';
// The list of all records: filtered, sorted, and shown a part at a time. Its rows are those of the element
// "all", which is plain text where scripts run: one line for each, its cells between <td>. All texts in it are escaped.
(() => {
    const part = 500; // rows that are added at once
    const onPaper = 5000; // at most
    const at = id => document.getElementById(id);
    const [filter, state, list, more] = ['filter', 'state', 'list', 'more'].map(at);
    const body = list.tBodies[0];
    const all = at('all').textContent;
    const rows = all.slice(0, all.lastIndexOf('\n</tbody>')).split('\n<tr').slice(1);
    at('all').remove();
    const products = [...document.querySelectorAll('#products a')].map(link => ({
        folder: link.getAttribute('href'), suffix: link.dataset.suffix, of: link.dataset.of, label: link.textContent
    }));
    const shapes = new Set([...document.querySelectorAll('.findings tr[id]')].map(row => row.id));

    const grouped = number => number.toLocaleString('en-GB');
    const entities = {amp: '&', lt: '<', gt: '>', quot: '"', '#39': "'"};
    const plain = text => text.replace(/&(amp|lt|gt|quot|#39);/g, (_, name) => entities[name]);
    const cells = row => row.split('<td>');
    const nameOf = first => plain(first.slice(first.indexOf('<th>') + 4));

    // What a filter looks at: made when it is wanted first, for a page opens sooner without.
    let texts = null;
    const textOf = row => {
        const [first, state, findings, messages] = cells(row);
        return {name: nameOf(first).toLowerCase(), state, findings: findings + ' ', hasFindings: messages !== '0'};
    };
    const fits = (text, words, state) =>
        (state === '' || (state === 'with findings' ? text.hasFindings : text.state === state)) &&
        words.every(word => /^#\d+$/.test(word) ? text.findings.includes(word + ' ')
            : text.name.includes(word) || text.state.includes(word));

    const states = ['failed', 'not run', 'made', 'up to date'];
    const keyOf = [
        (_, place) => place, // they come by name
        row => states.indexOf(cells(row)[1]),
        row => cells(row)[2].split('#').length - 1,
        row => Number(cells(row)[3].replaceAll(',', '')),
        row => cells(row)[4] === '' ? -1 : Number(cells(row)[4])
    ];
    const keys = [];
    let sorted = {column: 0, down: false};
    let order = rows.map((_, place) => place);
    let matching = order;
    let shown = 0;
    let asked = null; // the link to a record that was followed last
    let before = null; // what was shown before that

    const linksOf = row => {
        const first = cells(row)[0];
        const name = nameOf(first);
        const dot = name.lastIndexOf('.');
        const usual = encodeURIComponent(dot < 0 ? name : name.slice(0, dot));
        const stem = of => new RegExp(` data-${of}="([^"]*)"`).exec(first.slice(0, first.indexOf('>')))?.[1] ?? usual;
        return products.filter(product => stem(product.of) !== '').map(product => {
            const link = document.createElement('a');
            link.href = product.folder + stem(product.of) + product.suffix;
            link.textContent = product.label;
            return link;
        });
    };
    const rowText = row => {
        const [first, state, findings, ...numbers] = cells(row);
        const linked = findings.replace(/#(\d+)/g, (number, digits) =>
            shapes.has('s' + digits) ? `<a href="#s${digits}">${number}</a>` : number);
        return '<tr' + [first.replace('><th>', '><th scope="row">'), state, linked, ...numbers.slice(0, 2), ''].join('<td>');
    };

    const nearEnd = new IntersectionObserver(
        seen => seen.at(-1).isIntersecting && shown < matching.length && add(part), {rootMargin: '0px 0px 800px 0px'});
    const add = count => {
        const begin = shown;
        const next = matching.slice(begin, begin + count);
        body.insertAdjacentHTML('beforeend', next.map(place => rowText(rows[place])).join('\n'));
        next.forEach((place, index) => {
            const links = linksOf(rows[place]);
            body.rows[begin + index].lastElementChild.append(...links.flatMap(link => [link, ' ']));
        });
        shown += next.length;
        more.parentElement.hidden = shown === matching.length;
        // Anew: what was in sight and still is would not be told again.
        nearEnd.unobserve(more.parentElement);
        nearEnd.observe(more.parentElement);
        at('part').textContent = `${grouped(shown)} of ${grouped(matching.length)} are shown.`;
    };
    // A whole name stands in quotation marks, whatever else is in it.
    const wholeName = () => /^"(.+)"$/s.exec(filter.value)?.[1];
    const update = () => {
        const words = filter.value.toLowerCase().split(/\s+/).filter(word => word !== '');
        const whole = wholeName();
        if (words.length === 0 && state.value === '') {
            matching = order;
        } else if (whole !== undefined) {
            matching = order.filter(place => nameOf(cells(rows[place])[0]) === whole &&
                fits(textOf(rows[place]), [], state.value));
        } else {
            texts ??= rows.map(textOf);
            matching = order.filter(place => fits(texts[place], words, state.value));
        }
        body.replaceChildren();
        shown = 0;
        add(part);
        at('shown').textContent = matching.length === rows.length ? `${grouped(rows.length)} records`
            : `${grouped(matching.length)} of ${grouped(rows.length)} records`;
    };
    const sortBy = column => {
        const numbers = column >= 2; // the most first
        sorted = {column, down: sorted.column === column ? !sorted.down : numbers};
        const key = keys[column] ??= Float64Array.from(rows, keyOf[column]);
        const turn = sorted.down ? -1 : 1;
        order = rows.map((_, place) => place).sort((a, b) => turn * (key[a] - key[b]) || a - b);
        markSorted();
        update();
    };
    const headings = [...list.tHead.rows[0].cells];
    const markSorted = () => headings.forEach((heading, column) => {
        if (column === sorted.column) {
            heading.setAttribute('aria-sort', sorted.down ? 'descending' : 'ascending');
        } else {
            heading.removeAttribute('aria-sort');
        }
    });

    headings.forEach((heading, column) =>
        heading.querySelector('button')?.addEventListener('click', () => sortBy(column)));
    at('controls').addEventListener('submit', event => event.preventDefault());
    const changed = () => {
        before = null;
        update();
    };
    filter.addEventListener('input', changed);
    state.addEventListener('change', changed);
    // Whoever asks for more by the keyboard goes on reading there.
    more.addEventListener('click', () => {
        const begin = shown;
        add(part);
        const first = body.rows[begin].cells[0];
        first.tabIndex = -1;
        first.focus();
    });
    addEventListener('beforeprint', () => shown < onPaper && add(onPaper - shown));

    document.querySelectorAll('a[data-show]').forEach(link => link.addEventListener('click', event => {
        event.preventDefault(); // which would take the focus from the filter
        filter.value = link.dataset.show;
        state.value = '';
        changed();
        at('records').scrollIntoView();
        filter.focus({preventScroll: true});
    }));
    // A link to a record shows it alone; the way back leads to what was shown, and to the link.
    const recordOf = hash => rows[/^#r(\d+)$/.exec(hash)?.[1] - 1];
    const showRecord = row => {
        before ??= {filter: filter.value, state: state.value, link: asked};
        filter.value = `"${nameOf(cells(row)[0])}"`;
        state.value = '';
        update();
        at('records').scrollIntoView();
        const name = body.rows[0].cells[0];
        name.tabIndex = -1;
        name.focus({preventScroll: true});
    };
    const goBack = () => {
        const {link} = before;
        [filter.value, state.value] = [before.filter, before.state];
        before = null;
        update();
        link?.focus();
    };
    document.addEventListener('click', event => {
        const link = event.target.closest('a[href^="#r"]');
        const row = recordOf(link?.hash);
        if (row !== undefined) {
            asked = link;
            if (link.hash === location.hash) { // nothing changes, but it is asked for again
                event.preventDefault();
                showRecord(row);
            }
        }
    });
    // A link to a shape opens it, also where it is folded away.
    const openTarget = () => {
        const isNew = history.state === null; // else the reader went back, or forwards
        history.replaceState('seen', '');
        const record = recordOf(location.hash);
        if (record !== undefined) {
            showRecord(record);
        } else if (before !== null && !isNew) {
            goBack();
        }
        const row = /^#s\d+$/.test(location.hash) && document.querySelector(location.hash);
        if (row) {
            row.querySelector('details').open = true;
            row.closest('details.common')?.setAttribute('open', '');
            row.scrollIntoView();
        }
    };
    addEventListener('hashchange', openTarget);

    at('controls').hidden = false;
    list.hidden = false;
    markSorted();
    update();
    openTarget();
})();
