// The browser's end of the bridge to Tabulon: answers one request with one reply, in parts where a text is
// long. Text of a page is never run as code: a request names a function of this file. docs/browser-bridge.md
// describes the messages.
"use strict";

const api = globalThis.browser ?? globalThis.chrome;
const HOST = "com.tabulon.tabulon";
const PROTOCOL = 1;
const PART_CHARACTERS = 100_000; // at most 600,000 bytes of JSON
const MAXIMUM_CHARACTERS = 16_000_000; // of one text
const RETRY_MILLISECONDS = 3000;
const EMPTY_MILLISECONDS = 5000; // as long as the program waits for a reply
const ALARM_MINUTES = 0.5;

// The functions that run in a page. Each returns a text. Those of links end each value with a form feed.
const SCRIPTS = {
  selection: () => `${getSelection()}`,
  title: () => `${document.title}`,
  source: () => document.documentElement?.outerHTML ?? "",
  linkTargets: () => Array.from(document.links, link => `${link.href}\f`).join(""),
  linkTexts: () => Array.from(document.links, link => `${link.text}\f`).join(""),
  datesAdded: () => Array.from(document.links, link => `${link.getAttribute("ADD_DATE")}\f`).join(""),
  datesModified: () => Array.from(document.links, link => `${link.getAttribute("LAST_MODIFIED")}\f`).join(""),
};

// A failure with a code that the program knows.
class Refusal extends Error {
  constructor(code, message) {
    super(message);
    this.code = code;
  }
}

// The window that a request has made: in front, although Chromium may not notice that it has the keyboard.
// While it is empty it waits for its address.
let madeWindow = null;

function forgetMadeWindow() {
  if (!madeWindow?.isEmpty || Date.now() - madeWindow.time > EMPTY_MILLISECONDS)
    madeWindow = null;
}

// Returns a list of one tab, or of none.
async function tabsInFront() {
  if (madeWindow) {
    const tabs = await api.tabs.query({ active: true, windowId: madeWindow.id }).catch(() => []);
    if (tabs.length > 0)
      return tabs;
    madeWindow = null; // it was closed
  }
  return api.tabs.query({ active: true, lastFocusedWindow: true });
}

async function frontTab() {
  const [tab] = await tabsInFront();
  if (!tab)
    throw new Refusal("noWindow", "The browser has no window.");
  if (tab.incognito)
    throw new Refusal("private", "The window in front is private.");
  return tab;
}

async function runScript(name) {
  const tab = await frontTab();
  const func = SCRIPTS[name];
  let results;
  try {
    results = await api.scripting.executeScript({ target: { tabId: tab.id }, func });
  } catch (error) {
    throw new Refusal("refused", error.message);
  }
  const result = results?.[0]?.result;
  if (typeof result !== "string")
    throw new Refusal("refused", "The page returned no text.");
  return { text: result };
}

// An address that the browser's interface refuses, or accepts without showing it.
function checkAddress(address) {
  const scheme = /^[\u0000-\u0020]*([a-z][a-z0-9+.-]*):/i.exec(String(address))?.[1].toLowerCase();
  if (!["http", "https", "ftp"].includes(scheme))
    throw new Refusal("refused", "The browser shows no such address for an extension.");
}

const OPERATIONS = {
  async hello() {
    const info = api.runtime.getBrowserInfo ? await api.runtime.getBrowserInfo() : null;
    return { protocol: PROTOCOL, extension: api.runtime.getManifest().version, browser: info?.name ?? "" };
  },
  async windows() {
    const windows = await api.windows.getAll({ windowTypes: ["normal"] });
    return { count: windows.filter(window => !window.incognito).length };
  },
  async frontTab() {
    const tab = await frontTab();
    return { title: tab.title ?? "", url: tab.url ?? "" };
  },
  async run({ script }) {
    if (!Object.hasOwn(SCRIPTS, script))
      throw new Refusal("unknown", "There is no such script.");
    return runScript(script);
  },
  async setURL({ url }) {
    checkAddress(url);
    const tab = await frontTab();
    if (madeWindow)
      madeWindow.isEmpty = false;
    await api.tabs.update(tab.id, { url });
    await api.windows.update(tab.windowId, { focused: true }); // above a private one
    return {};
  },
  async newTab({ url }) {
    checkAddress(url);
    const tab = await frontTab();
    await api.tabs.create({ windowId: tab.windowId, url });
    await api.windows.update(tab.windowId, { focused: true });
    return {};
  },
  async newWindow({ url }) {
    if (url !== undefined)
      checkAddress(url);
    const window = await api.windows.create(url === undefined ? {} : { url });
    madeWindow = { id: window.id, time: Date.now(), isEmpty: url === undefined };
    return {};
  },
  async focus() {
    return focus;
  },
};

// When the browser got or lost the keyboard the last time, in milliseconds since 1970.
const focus = { focused: false, time: 0 };
api.windows.onFocusChanged.addListener(windowId => {
  focus.focused = windowId !== api.windows.WINDOW_ID_NONE;
  focus.time = Date.now();
  if (focus.focused)
    forgetMadeWindow();
});

let port = null;

function send(client, reply) {
  port?.postMessage({ client, reply });
}

function isHighSurrogate(text, index) {
  return (text.charCodeAt(index) & 0xfc00) === 0xd800;
}

function sendResult(client, id, result) {
  const text = result.text;
  if (typeof text !== "string" || text.length <= PART_CHARACTERS)
    return send(client, { id, result });
  if (text.length > MAXIMUM_CHARACTERS)
    return send(client, { id, error: "tooLong", message: "The page is too long." });
  for (let start = 0, end; start < text.length; start = end) {
    end = Math.min(start + PART_CHARACTERS, text.length);
    if (isHighSurrogate(text, end - 1) && end < text.length)
      end -= 1; // a character of two units stays in one part
    send(client, { id, part: text.slice(start, end) });
  }
  send(client, { id, result: { text: "" } });
}

async function answer({ client, request }) {
  const id = request?.id;
  try {
    if (request?.protocol !== PROTOCOL)
      throw new Refusal("protocol", `This extension understands version ${PROTOCOL}.`);
    if (!Object.hasOwn(OPERATIONS, request.operation))
      throw new Refusal("unknown", "There is no such operation.");
    sendResult(client, id, await OPERATIONS[request.operation](request));
  } catch (error) {
    send(client, { id, error: error.code ?? "failed", message: String(error.message) });
  }
}

function connect() {
  if (port)
    return;
  port = api.runtime.connectNative(HOST);
  port.onMessage.addListener(answer);
  port.onDisconnect.addListener(() => {
    port = null;
    setTimeout(connect, RETRY_MILLISECONDS);
  });
}

// A worker that the browser has stopped is started by one of these.
api.runtime.onStartup.addListener(connect);
api.runtime.onInstalled.addListener(connect);
api.tabs.onActivated.addListener(connect);
api.alarms.onAlarm.addListener(connect);
api.alarms.create("connect", { periodInMinutes: ALARM_MINUTES });
connect();
