// The page of `mrset run --format html` as people meet it: in a browser, light and dark, wide and narrow, on paper.
// Every text that comes from outside is hostile here, and stays text.
import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { pathToFileURL } from 'node:url';
import { after, before, test } from 'node:test';
import { chromium } from 'playwright-core';

const axeSource = createRequire(import.meta.url).resolve('axe-core');

// What would act: markup in content, in attributes and in the style sheet; control characters; turned directions.
const hostile = [
  '<script>window.acted = 1; alert(1)</script>',
  '"><img src=x onerror="window.acted = 2"><a href="javascript:alert(2)">',
  "' onmouseover='window.acted = 3' autofocus onfocus='alert(3)",
  '</td></table></style><style>body{display:none}</style><iframe src="http://example.invalid/"></iframe>',
  '<link rel=stylesheet href=http://example.invalid/a.css><meta http-equiv=refresh content=0;url=http://example.invalid>',
  'turned \u202Ereversed\u202C back, \u2067isolated\u2069',
  'escape \u001B[31mred\u001B[0m bell \u0007 delete \u007F csi \u009B31m',
  '&lt;b&gt; &amp;amp; &#x202e; --> ]]> <!-- ${1} {{2}} <%= 3 %>',
  'wide ' + 'W'.repeat(300),
  'עברית and English, العربية',
];
const shownOf = new Map([
  [hostile[5], 'turned \\u202ereversed\\u202c back, \\u2067isolated\\u2069'],
  [hostile[6], 'escape \\x1b[31mred\\x1b[0m bell \\x07 delete \\x7f csi \\x9b31m'],
]);
const shown = (text) => shownOf.get(text) ?? text;

const folder = mkdtempSync(join(tmpdir(), 'mrset-page-'));
const inFolder = (name) => join(folder, name);
let browser;
let results;  // of the page's commands, as JSON

function mrset(expectedStatus, ...args) {
  const result = spawnSync(process.env.MRSET_PROGRAM, args, { encoding: 'utf8', cwd: folder });
  assert.equal(result.status, expectedStatus, `mrset ${args.join(' ')}: ${result.stderr}`);
  return result.stdout;
}

function makeSurvey() {
  const names = hostile.map((_, i) => `v${i + 1}`);
  writeFileSync(inFolder('survey.csv'), `${names.join(',')}\n${names.map(() => '1').join(',')}\n`);
  const fields = names.map((name, i) => ({
    name, type: 'integer', title: hostile[i], categories: [{ value: 1, label: `${hostile[i]} chosen` }],
  }));
  writeFileSync(inFolder('survey.schema.json'), JSON.stringify({ fields }));
  mrset(0, 'import', '--schema', 'survey.schema.json', 'survey.csv', 'survey.mrset');
}

function makePage() {
  const quoted = (text) => `'${text.replaceAll("'", "''")}'`;
  const all = `VARIABLES=v1 TO v${hostile.length} VALUE=1`;
  const commands = hostile.map((text, i) => `MRSET /MDGROUP NAME=$s${i + 1} LABEL=${quoted(text.slice(0, 200))} ${all}.`);
  commands.push(`MRSET /MDGROUP NAME=$labels ${all} CATEGORYLABELS=COUNTEDVALUES /DISPLAY NAME=ALL.`);
  commands.push('MRSET /DISPLAY NAME=[$none] /DELETE NAME=[$neither].', `MRSET /MDGROUP NAME=${quoted(hostile[1])}.`,
    'MRSET /DELETE NAME=[x].', `${'* a comment\n'.repeat(2)}\nMRSET\n${'  /DELETE NAME=[$s1]\n'.repeat(40)}  /FOO.`);
  writeFileSync(inFolder('hostile.script'), commands.join('\n') + '\n');
  const lines = mrset(3, 'run', 'survey.mrset', 'hostile.script', '--dry-run', '--format', 'json').trimEnd().split('\n');
  results = lines.map((line) => JSON.parse(line));
  mrset(3, 'run', 'survey.mrset', 'hostile.script', '--format', 'html', '--output', 'page.html');
}

// The page as opened, with all that a page must not do.
async function open(options, file = 'page.html') {
  const context = await browser.newContext(options);
  const page = await context.newPage();
  const url = pathToFileURL(inFolder(file)).href;
  const faults = [];
  page.on('dialog', async (dialog) => { faults.push(`dialog: ${dialog.message()}`); await dialog.dismiss(); });
  page.on('request', (request) => { if (request.url().split('#')[0] !== url) faults.push(`request: ${request.url()}`); });
  page.on('pageerror', (error) => faults.push(`error: ${error.message}`));
  page.on('console', (message) => faults.push(`console: ${message.text()}`));
  page.on('popup', () => faults.push('popup'));
  await page.goto(url);
  return { page, faults, close: () => context.close() };
}

// What axe finds, or cannot decide, as lines that name rule and element. It knows no ground that is a gradient, so the
// edges that hint at scrolling are taken away; and it cannot tell the contrast of what is scrolled out of view, nor whether
// "Note a" names a link that shows "a".
async function findings(page) {
  await page.addStyleTag({ content: '.scroll { background: none !important; }' });
  await page.addScriptTag({ path: axeSource }).catch(() => {});
  return page.evaluate(async () => {
    const { violations, incomplete } = await window.axe.run(document, { resultTypes: ['violations', 'incomplete'] });
    const undecided = incomplete.filter(({ id }) => !['color-contrast', 'label-content-name-mismatch'].includes(id));
    return [...violations, ...undecided].flatMap(({ id, nodes }) => nodes.map(({ target, failureSummary }) =>
      `${id}: ${target.join(' ')}: ${failureSummary}`));
  });
}

// Tables of sets: of the hostile labels, and of a survey with several regions, a weight and tests.
function makeTables() {
  mrset(0, 'run', 'survey.mrset', '-c', `MRSET /MDGROUP NAME=$hostile VARIABLES=v1 TO v${hostile.length} VALUE=1`);
  const rows = Array.from({ length: 60 }, (_, i) => [i % 2, i % 3 ? 1 : 0, `R${i % 8}`, 0.5 + (i % 4) / 2].join(','));
  writeFileSync(inFolder('regions.csv'), `tea,coffee,region,w\n${rows.join('\n')}\n`);
  mrset(0, 'import', 'regions.csv', 'regions.mrset');
  const define = 'MRSET /MDGROUP NAME=$drinks LABEL="Drinks" VARIABLES=tea coffee VALUE=1.';
  writeFileSync(inFolder('tables.script'), [define, 'TABULATE $drinks.',
    'TABULATE $drinks /BY=region /WEIGHT=w /SHOW=COUNT CASES RESPONSES ERROR INTERVAL /TEST.',
    'TABULATE $drinks /BY=tea coffee tea*coffee $drinks /WHERE=region <> "R1" /NET="Either": tea coffee.'].join('\n') + '\n');
  mrset(0, 'run', 'regions.mrset', 'tables.script', '--output', 'tables.html');
  mrset(0, 'run', 'survey.mrset', '-c', 'TABULATE $hostile /BY=v1 $hostile', '--output', 'hostile-tables.html');
}

before(async () => {
  makeSurvey();
  makePage();
  makeTables();
  browser = await chromium.launch({
    executablePath: process.env.MRSET_BROWSER,
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
      '--disable-component-update', '--disable-sync'],
  });
});

after(async () => {
  await browser?.close();
  rmSync(folder, { recursive: true, force: true });
});

const widths = { desktop: { width: 1280, height: 900 }, narrow: { width: 320, height: 640 } };
for (const colorScheme of ['light', 'dark']) {
  for (const [name, viewport] of Object.entries(widths)) {
    test(`axe finds nothing: ${colorScheme}, ${name}`, async () => {
      const { page, close } = await open({ colorScheme, viewport, bypassCSP: true });
      assert.deepEqual(await findings(page), []);
      await close();
    });

    test(`hostile texts are shown and do nothing: ${colorScheme}, ${name}`, async () => {
      const { page, faults, close } = await open({ colorScheme, viewport });
      const texts = await page.locator('td, td li').allTextContents();
      for (const text of hostile) {
        assert.ok(texts.includes(shown(text)), `not shown: ${shown(text)}`);
        assert.ok(await page.evaluate((part) => !document.documentElement.textContent.includes(part), text) ||
          shown(text) === text, `not made visible: ${text}`);
      }
      await page.mouse.move(200, 300);
      for (let i = 0; i < 30; ++i) {
        await page.keyboard.press('Tab');
      }
      assert.equal(await page.evaluate(() => window.acted), undefined);
      assert.equal(await page.locator('script, img, iframe, link, object, embed, form, [onerror], [onmouseover]').count(), 0);
      assert.equal(await page.locator('style').count(), 1);
      assert.deepEqual(faults, []);
      await close();
    });
  }
}

for (const width of [320, 375, 768, 1280]) {
  test(`the page never scrolls sideways: ${width} px`, async () => {
    const { page, close } = await open({ viewport: { width, height: 700 } });
    assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), width);
    await close();
  });
}

test('a wide table scrolls by the keyboard in a group that its caption names', async () => {
  const { page, close } = await open({ viewport: widths.narrow });
  const region = page.getByRole('group', { name: 'Multiple Response Sets' }).first();
  await region.focus();
  assert.ok(await region.evaluate((element) => element.scrollWidth > element.clientWidth));
  await page.keyboard.press('ArrowRight');
  await page.waitForFunction((element) => element.scrollLeft > 0, await region.elementHandle());
  await close();
});

test('the structure is that of a document', async () => {
  const { page, close } = await open({ viewport: widths.desktop });
  assert.equal(await page.getAttribute('html', 'lang'), 'en');
  assert.equal(await page.title(), 'survey.mrset: 15 commands, 3 failed');
  assert.deepEqual(await page.locator('h1').allTextContents(), ['survey.mrset']);
  assert.equal(await page.locator('main section h2').count(), 15);
  const tables = page.locator('table');
  for (let i = 0; i < await tables.count(); ++i) {
    const table = tables.nth(i);
    assert.equal(await table.locator('caption').textContent(), 'Multiple Response Sets');
    assert.equal(await table.locator('thead th[scope=col]').count(), 6);
    assert.equal(await table.locator('tbody tr').count(), await table.locator('tbody th[scope=row], td.none').count());
  }
  await close();
});

test('the summary counts, and leads to what failed', async () => {
  const { page, close } = await open({ viewport: widths.desktop });
  const number = (status) => results.filter((result) => result.status === status).length;
  const warnings = results.flatMap(({ items }) => items).filter(({ level }) => level === 'warning').length;
  assert.ok(warnings > 0);
  assert.deepEqual(await page.locator('.counts div').allTextContents(),
    ['Commands15', `With errors${number('error')}`, `Aborted${number('aborted')}`, `Warnings${warnings}`]);
  const links = page.locator('nav a');
  assert.deepEqual(await links.evaluateAll((all) => all.map((a) => a.getAttribute('href'))),
    ['#command-13', '#command-14', '#command-15']);
  await links.last().click();
  await page.waitForFunction(() => document.querySelector('#command-15').getBoundingClientRect().top < innerHeight);
  await close();
});

test('a note is linked both ways', async () => {
  const { page, close } = await open({ viewport: widths.desktop });
  await page.getByRole('link', { name: 'Note a', exact: true }).first().click();
  assert.equal(await page.locator(':target').textContent(), 'a Using variable value labels');
  await page.locator(':target a').click();
  assert.equal(await page.locator(':target').textContent(), 'a');
  await close();
});

test('numbers stand below each other, with a note or without', async () => {
  const { page, close } = await open({ viewport: widths.desktop });
  const ends = await page.locator('table').first().locator('td.number').evaluateAll((cells) => cells.map((cell) => {
    const range = document.createRange();
    range.selectNodeContents(cell.firstChild);
    return range.getBoundingClientRect().right;
  }));
  assert.ok(ends.length > 1);
  assert.equal(new Set(ends.map(Math.round)).size, 1);
  await close();
});

test('nothing is lost without scripts', async () => {
  const text = async (javaScriptEnabled) => {
    const { page, close } = await open({ javaScriptEnabled });
    const shownText = await page.locator('body').innerText();
    await close();
    return shownText;
  };
  assert.equal(await text(false), await text(true));
});

test('paper is white, and tables fit on it', async () => {
  const { page, close } = await open({ colorScheme: 'dark', viewport: { width: 680, height: 960 }, bypassCSP: true });
  await page.emulateMedia({ media: 'print', colorScheme: 'dark' });
  assert.equal(await page.evaluate(() => getComputedStyle(document.body).backgroundColor), 'rgb(255, 255, 255)');
  assert.equal(await page.evaluate(() => getComputedStyle(document.body).color), 'rgb(0, 0, 0)');
  assert.ok(await page.locator('table').evaluateAll((all) => all.every((one) => one.scrollWidth <= innerWidth)));
  assert.deepEqual(await findings(page), []);
  assert.ok((await page.pdf({ preferCSSPageSize: true, format: 'A4' })).length > 10000);
  await close();
});

test('tables of sets fit on paper, and no figure is cut or broken', async () => {
  for (const file of ['tables.html', 'hostile-tables.html']) {
    const { page, close } = await open({ viewport: { width: 680, height: 960 }, bypassCSP: true }, file);
    await page.emulateMedia({ media: 'print' });
    assert.deepEqual(await page.locator('table, svg').evaluateAll((all) => all.map((one) =>
      Math.round(one.getBoundingClientRect().right)).filter((right) => right > innerWidth)), []);
    assert.deepEqual(await page.locator('td.number').evaluateAll((all) => all.filter((cell) => {
      const range = document.createRange();
      range.selectNodeContents(cell);
      const lines = new Set([...range.getClientRects()].map((box) => Math.round(box.top)));
      const text = range.getBoundingClientRect();
      return lines.size > 1 || text.left < cell.getBoundingClientRect().left || text.right > innerWidth;
    }).map((cell) => cell.textContent)), []);
    assert.deepEqual(await findings(page), []);
    await close();
  }
});

for (const colorScheme of ['light', 'dark']) {
  for (const [name, viewport] of Object.entries(widths)) {
    for (const file of ['tables.html', 'hostile-tables.html']) {
      test(`axe finds nothing in tables of sets: ${file}, ${colorScheme}, ${name}`, async () => {
        const { page, faults, close } = await open({ colorScheme, viewport, bypassCSP: true }, file);
        assert.deepEqual(await findings(page), []);
        assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), viewport.width);
        assert.deepEqual(faults, []);
        await close();
      });
    }
  }

  test(`every bar stands out from the page and its panels: ${colorScheme}`, async () => {
    const { page, close } = await open({ colorScheme }, 'tables.html');
    const colours = await page.evaluate(() => [getComputedStyle(document.body).backgroundColor,
      getComputedStyle(document.querySelector('main').appendChild(
        Object.assign(document.createElement('p'), { className: 'command-text' }))).backgroundColor,
      ...[...document.querySelectorAll('rect')].map((bar) => getComputedStyle(bar).fill)]);
    const luminance = (colour) => colour.match(/\d+/g).map((part) => part / 255)
      .map((part) => (part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4))
      .reduce((sum, part, i) => sum + part * [0.2126, 0.7152, 0.0722][i], 0);
    const [ground, panel, ...bars] = colours.map(luminance);
    assert.notEqual(ground, panel);
    assert.ok(bars.length > 20);
    for (const bar of bars) {
      for (const under of [ground, panel]) {
        assert.ok((Math.max(bar, under) + 0.05) / (Math.min(bar, under) + 0.05) >= 3);
      }
    }
    await close();
  });
}

test('hostile texts in tables of sets are shown and do nothing', async () => {
  const { page, faults, close } = await open({ viewport: widths.desktop }, 'hostile-tables.html');
  const texts = await page.locator('tbody th').allTextContents();
  assert.deepEqual(texts, hostile.map(shown));
  assert.equal(await page.evaluate(() => window.acted), undefined);
  assert.equal(await page.locator('script, img, iframe, link, object, embed, form, [onerror], [onmouseover]').count(), 0);
  assert.deepEqual(faults, []);
  await close();
});

test('bars have their values in text, and a chart its title and description', async () => {
  const { page, close } = await open({ viewport: widths.desktop }, 'tables.html');
  const chart = page.locator('#command-2 svg');
  assert.equal(await page.getByRole('img', { name: 'Drinks ($drinks): % of cases Bars of', exact: false }).count(), 1);
  assert.equal(await chart.locator('desc').textContent(),
    "Bars of the table's figures: % of cases. The scale goes from 0 to 80.0.");
  assert.deepEqual(await chart.locator('text').allTextContents(), ['0', '80.0', 'tea', '60.0', 'coffee', '80.0']);
  await close();
});

test('charts never leave their room', async () => {
  for (const file of ['tables.html', 'hostile-tables.html']) {
    const { page, close } = await open({ viewport: widths.narrow }, file);
    assert.deepEqual(await page.locator('svg').evaluateAll((all) => all.flatMap((svg) => {
      const right = svg.getBoundingClientRect().right;
      return [...svg.querySelectorAll('text')].filter((text) => text.getBoundingClientRect().right > right + 1)
        .map((text) => text.textContent);
    })), []);
    const overlaps = await page.locator('svg').evaluateAll((all) => all.flatMap((svg) => {
      const bars = Math.min(...[...svg.querySelectorAll('rect')].map((bar) => bar.getBoundingClientRect().left));
      return [...svg.querySelectorAll('text.label')].filter((text) => text.getBoundingClientRect().right > bars + 1)
        .map((text) => text.textContent);
    }));
    assert.deepEqual(overlaps, []);
    await close();
  }
});
