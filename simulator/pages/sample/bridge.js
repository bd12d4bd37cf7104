'use strict';

/*
 * The bridge between a page and the robot core. Copy this file as it is:
 *
 *   sample.connect((topic, attributes) => {
 *     if (topic === 'user.has.user') console.log('Hello', attributes.name);
 *   }).then((robot) => {
 *     robot.send('system.language.set', { language: 'en' });
 *     robot.log('The page is ready');
 *   }).catch((error) => {
 *     console.warn('No robot here:', error.message);
 *   });
 */
window.sample = window.sample || {};

(function (sample) {

  const CORE_NAME = '_karvel_internal';

  // Connects to the robot core and calls onMessage(topic, attributes) for every
  // message it sends from then on. Resolves to { send, log }.
  function connect(onMessage) {
    return openChannel().then((channel) => {
      const core = channel.objects[CORE_NAME];
      if (!core) {
        throw new Error('the web channel has no object ' + CORE_NAME);
      }
      core.message.connect((message) => receive(message, onMessage));
      return {
        send: (topic, attributes) => send(core, topic, attributes),
        log: (text, details) => log(core, text, details),
      };
    });
  }

  // Over the transport that the robot's screen gives its page or, in an ordinary browser, over the
  // WebSocket of the simulator whose token is in the page's address.
  async function openChannel() {
    const token = new URLSearchParams(window.location.search).get('token');
    let transport = window.qt && window.qt.webChannelTransport;
    if (transport) {
      await loadScript('qrc:///qtwebchannel/qwebchannel.js');
    } else if (token) {
      await loadScript('/qwebchannel.js');
      transport = await openSocket('/channel?token=' + encodeURIComponent(token));
    } else {
      throw new Error('qt.webChannelTransport is missing');
    }
    return new Promise((resolve) => {
      new window.QWebChannel(transport, resolve);
    });
  }

  function loadScript(address) {
    return new Promise((resolve, reject) => {
      const script = document.createElement('script');
      script.src = address;
      script.onload = resolve;
      script.onerror = () => reject(new Error(address + ' was not loaded'));
      document.head.appendChild(script);
    });
  }

  function openSocket(path) {
    return new Promise((resolve, reject) => {
      const socket = new WebSocket('ws://' + window.location.host + path);
      socket.onopen = () => resolve(socket);
      socket.onclose = (event) => reject(new Error('the simulator closed: ' + event.reason));
    });
  }

  // A message is one flat object: the topic under "type", its own identity
  // under "id", and the attributes beside them.
  function receive(message, onMessage) {
    if (message === null || typeof message !== 'object' || Array.isArray(message)) {
      return;
    }
    const topic = typeof message.type === 'string' ? message.type : '';
    onMessage(topic, attributesOf(message));
  }

  // The attributes are copied to an object without a prototype, so that a page
  // may read attributes.anything: a missing attribute is always undefined, and
  // one called "constructor" or "__proto__" is an attribute like any other.
  function attributesOf(message) {
    const attributes = Object.create(null);
    Object.keys(message)
      .filter((key) => key !== 'id' && key !== 'type')
      .forEach((key) => { attributes[key] = message[key]; });
    return attributes;
  }

  // What sendMessage returns has no meaning: the robot answers, if it does,
  // with a message of its own.
  function send(core, topic, attributes) {
    core.sendMessage(Object.assign({}, attributes, { type: topic }));
  }

  // One line in the log of the application that shows the page.
  function log(core, text, details) {
    if (details === undefined) {
      core.log_string(text);
    } else {
      core.log_json(text, details);
    }
  }

  sample.connect = connect;

})(window.sample);
