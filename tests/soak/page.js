// The page of the soak: counts what comes, and sends numbered requests. The host leads it with
// custom events that hold a `command`; what it answers goes by topics "soak...." outside the counts.
'use strict';

const WINDOW = 64; // requests on their way at a time
const TELL_EVERY = 32; // messages received, so that the host can keep its window
const SIZES = [100, 500, 2000, 10000, 100000];
const PIECES = [
  'abcdefghij', 'Gr\u00fc\u00dfe aus K\u00f6ln ',
  '\u0417\u0434\u0440\u0430\u0432\u0441\u0442\u0432\u0443\u0439\u0442\u0435 ',
  '\u65e5\u672c\u8a9e\u306e\u6587\u7ae0', '\u{1F600}\u{1F916}', '"\\\n\t\u2028<&>\'/',
];
const bodies = new Map();

/** The same as Numbers in Numbers.h. */
class Numbers {
  constructor(name) {
    this.name = name;
    this.next = 1;
    this.missing = 0;
    this.repeated = 0;
    this.fault = '';
  }

  take(number) {
    if (number === this.next) {
      this.next += 1;
      return;
    }
    this.fault = this.fault || `${this.name}: number ${number} came instead of ${this.next}`;
    if (number > this.next) {
      this.missing += number - this.next;
      this.next = number + 1;
    } else {
      this.repeated += 1;
    }
  }
}

/** The same as textOf() in Texts.h. */
function textOf(number) {
  const dice = (Math.imul(number, 2654435761) >>> 12) % 1000;
  const size = SIZES[[550, 800, 950, 998, 1000].findIndex((bound) => dice < bound)];
  const piece = PIECES[number % PIECES.length];
  const key = `${size}${piece}`;
  if (!bodies.has(key))
    bodies.set(key, piece.repeat(Math.floor(size / piece.length)));
  return `${number}:${bodies.get(key)}`;
}

function numberOf(text) {
  const number = parseInt(text, 10);
  return text === textOf(number) ? number : 0;
}

let robot = null;
let listening = false; // from the host's "start" on
const received = new Numbers('messages to the page');
let replies = [];
let wrongReplies = 0;
let next = 1; // number of the next request
let until = 0; // the last one that is wanted now
let onTheirWay = 0;

/** The number of a reply, which also names its request. */
function reply(number, text) {
  if (replies.shift() !== numberOf(text))
    wrongReplies += 1;
  return number;
}

function reportNumber(faces) {
  const whole = faces.length === 20 && faces.every((face) =>
    face.id_track === faces[0].id_track && Object.keys(face.matches).length === 5);
  return whole ? faces[0].id_track : 0;
}

const numberFrom = {
  'system.custom.event.core': (m) => (m.nested.list[1].text === m.text ? numberOf(m.text) : 0),
  'dialog.user.said': (m) => numberOf(m.text),
  'dialog.robot.replic.start': (m) => numberOf(m.text),
  'dialog.action': (m) => numberOf(m.meta[1]),
  'face.recognize.info': (m) => reportNumber(Object.values(m.info)),
  'system.scripts.start.result': (m) => reply(Number(m.result[0]), m.result[1]),
  'system.settings.load': (m) => Object.values(m.settings).map((s) => reply(s.value, s.name))[0],
};

function request(number) {
  const text = textOf(number);
  switch (number % 10) {
  case 0: case 1: case 2:
    replies.push(number);
    return {type: 'system.scripts.control', start: text};
  case 3: case 4:
    replies.push(number);
    return {type: 'system.settings.get', settings_type: 'application', group: 'soak', name: text};
  case 5:
    return {type: 'system.language.set', language: text};
  case 6:
    return {type: 'dialog.say', text, macroses: {visitor: 'Ann', hall: text.slice(0, 50)}};
  case 7:
    return {type: 'face.recognize.control', tracking_face: number, padding: text};
  default:
    return {type: 'system.custom.event.js', text, nested: {list: [1, {text}], on: true}};
  }
}

function sendNext() {
  const message = request(next);
  message.soak = next;
  next += 1;
  return message;
}

function work() {
  while (next <= until && onTheirWay < WINDOW) {
    onTheirWay += 1;
    robot.sendMessage(sendNext(), () => {
      onTheirWay -= 1;
      work();
    });
  }
}

/** Sends without waiting for anything; yields now and then, as a page must. */
function flood(end) {
  const first = next;
  const channel = new MessageChannel();
  channel.port1.onmessage = () => {
    const slice = performance.now() + 20;
    while (performance.now() < slice)
      robot.sendMessage(sendNext());
    if (performance.now() < end)
      channel.port2.postMessage(0);
    else
      robot.sendMessage({type: 'soak.flooded', last: next - 1, count: next - first});
  };
  channel.port2.postMessage(0);
}

const commands = {
  start(message) {
    received.next = message.first;
    next = message.next;
    listening = true;
    robot.sendMessage({type: 'soak.started'});
  },
  work(message) {
    until = message.until;
    work();
  },
  ping(message) { robot.sendMessage({type: 'soak.pong', number: message.number}); },
  report() {
    robot.sendMessage({
      type: 'soak.report', seen: received.next - 1, missing: received.missing,
      repeated: received.repeated, fault: received.fault, unanswered: replies.length, wrongReplies,
      sent: next - 1,
    });
  },
  paint(message) { document.body.style.background = message.colour; },
  send(message) { robot.sendMessage({type: 'soak.large', text: 'x'.repeat(message.characters)}); },
  take(message) { // what is too large comes without its text
    robot.sendMessage({type: 'soak.taken', length: (message.text || '').length});
  },
  flood(message) { flood(performance.now() + message.ms); },
};

function receive(message) {
  if (message.command !== undefined) {
    commands[message.command](message);
    return;
  }
  if (!listening)
    return; // before the host's word where counting begins
  const number = numberFrom[message.type];
  received.take(number ? number(message) : 0);
  if ((received.next - 1) % TELL_EVERY === 0) {
    robot.sendMessage({type: 'soak.seen', last: received.next - 1});
    document.getElementById('count').textContent = received.next - 1;
  }
}

new QWebChannel(qt.webChannelTransport, (channel) => {
  robot = channel.objects._karvel_internal;
  robot.message.connect(receive);
  robot.sendMessage({type: 'soak.hello'});
});
