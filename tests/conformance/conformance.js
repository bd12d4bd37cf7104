'use strict';

/*
 * Talks to the robot, whatever the road to it, and hands the test all that it sent and heard, as one
 * text: "> " what it sent, "< " what it heard, "= " what the call returned. What is random or a time is
 * masked.
 */
(function () {
  // Reports of the camera come at their own pace.
  const LEFT_OUT = ['face.recognize.info', 'face.recognize.general'];
  const QUIET = 100; // ms without a message, after which a step is over
  const LIMIT = 10000; // ms that a step may take

  const lines = [];
  let heard = [];
  let lastHeard = 0;

  function mask(text) {
    return text
      .replace(/[0-9a-f]{8}-([0-9a-f]{4}-){3}[0-9a-f]{12}/g, '<uuid>')
      .replace(/\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d[^"]*/g, '<time>');
  }

  // Keys in order, so that a difference is one of contents; where they are random, a list will do.
  function sorted(value) {
    if (Array.isArray(value)) return value.map(sorted);
    if (value === null || typeof value !== 'object') return value;
    const keys = Object.keys(value);
    if (keys.length > 0 && keys.every((key) => mask(key) !== key))
      return keys.map((key) => JSON.stringify(sorted(value[key]))).sort();
    const copy = {};
    for (const key of keys.sort()) copy[key] = sorted(value[key]);
    return copy;
  }

  function write(mark, value) {
    lines.push(mark + ' ' + mask(JSON.stringify(sorted(value))));
  }

  function loadScript(address) {
    return new Promise((resolve, reject) => {
      const script = document.createElement('script');
      script.src = address;
      script.onload = resolve;
      script.onerror = () => reject(new Error(address));
      document.head.appendChild(script);
    });
  }

  async function openChannel() {
    let transport = window.qt && window.qt.webChannelTransport;
    if (transport) {
      await loadScript('qrc:///qtwebchannel/qwebchannel.js');
    } else {
      await loadScript('/qwebchannel.js');
      transport = new WebSocket('ws://' + location.host + '/channel' + location.search);
      await new Promise((resolve) => { transport.onopen = resolve; });
    }
    return new Promise((resolve) => { new QWebChannel(transport, resolve); });
  }

  function call(core, message) {
    return new Promise((resolve) => core.sendMessage(message, resolve));
  }

  function pause(ms) {
    return new Promise((resolve) => setTimeout(resolve, ms));
  }

  async function take(core, step) {
    heard = [];
    write('>', step.send);
    const returned = call(core, step.send);
    // Several at once: the robot takes them in order.
    const more = (step.then || []).map((message) => {
      write('>', message);
      return call(core, message).then((value) => write('=', value));
    });
    write('=', await returned);
    await Promise.all(more);

    const end = Date.now() + LIMIT;
    const waits = () => (step.until || []).filter((topic) => !heard.includes(topic));
    while (waits().length > 0 && Date.now() < end) await pause(5);
    for (const topic of waits()) lines.push('! ' + topic + ' did not come');
    lastHeard = Math.max(lastHeard, Date.now() - QUIET + 30);
    while (Date.now() - lastHeard < QUIET && Date.now() < end) await pause(5);
  }

  async function run() {
    const channel = await openChannel();
    const core = channel.objects._karvel_internal;
    core.message.connect((message) => {
      if (LEFT_OUT.includes(message.type)) return;
      if ('id' in message) message.id = 'an id';
      heard.push(message.type);
      lastHeard = Date.now();
      write('<', message);
    });
    write('=', Object.keys(channel.objects));
    for (const name of ['message', 'sendMessage', 'log_json', 'log_string'])
      write('=', [name, typeof core[name]]);
    for (const step of window.steps) await take(core, step);
    core.log_string('conformance: a text');
    core.log_json('conformance: an object', { a: [1, null, 'x'] });
    await call(core, { type: 'test.transcript', text: lines.join('\n') });
  }

  run().catch((error) => { document.title = 'failed: ' + error.message; });
})();
