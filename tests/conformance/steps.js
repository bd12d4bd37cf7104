'use strict';

/*
 * What the page does, in order. `until` names what has to come before the next step; `then` is sent at
 * once after `send`. The topic "test.cue" makes the test perform an action on the robot.
 */
window.steps = (function () {
  const cue = (action, values, until) => (
    { send: { type: 'test.cue', action, values: values || {} }, until });
  const picture = 'data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAQAAAC1HAwCAAAAC0lEQVR4' +
    '2mNk+A8AAQUBAScY42YAAAAASUVORK5CYII=';
  const long = 'long '.repeat(50000);
  const event = (attributes) => (
    cue('tell', { topic: 'system.custom.event.core', attributes }, ['system.custom.event.core']));

  return [
    // Nothing hears these, and the call returns all the same.
    { send: {} },
    { send: { type: 'my.own.topic', a: 1 } },
    { send: { type: 17 } },
    { send: { type: null, id: 'x' } },
    { send: { type: 'printer.success' } },

    { send: { type: 'system.log', level: 'info', message: 'conformance' } },
    { send: { type: 'system.statistic', topic: 'conformance', data: ['a;1\n'] } },
    { send: { type: 'system.language.set', language: 'de' } },
    { send: { type: 'system.language.set', language: 'en' } },
    { send: { type: 'system.interaction.control', state: 'Start' },
      until: ['system.interaction.state'] },
    { send: { type: 'system.interaction.control', state: 'Stop' },
      until: ['system.interaction.state'] },

    { send: { type: 'dialog.say', text: 'Welcome to %hall%', macroses: { hall: 'hall seven' } },
      until: ['dialog.robot.replic.finish'] },
    { send: { type: 'dialog.say', text: 'Grüß Gott, 世界 🤖 \u0000 end' },
      until: ['dialog.robot.replic.finish'] },
    { send: { type: 'dialog.say', text: long },
      then: [{ type: 'dialog.robot.replic.abort' }], until: ['dialog.robot.replic.finish'] },
    { send: { type: 'dialog.replica.get', step: 'welcome' }, until: ['dialog.replica.load'] },
    { send: { type: 'dialog.replica.get', step: 'no such step' } },
    cue('hear', { text: 'Who are', final: false }, ['dialog.user.said']),
    cue('hear', { text: 'Who are you?' }, ['dialog.answer.load', 'dialog.robot.replic.finish']),

    { send: { type: 'printer.state' }, until: ['printer.state.info'] },
    { send: { type: 'printer.print', data: picture }, until: ['printer.success'] },
    { send: { type: 'printer.print', data: 'no picture' } },
    cue('printer', { paper: 2 }),
    { send: { type: 'printer.print', data: picture },
      then: [{ type: 'printer.state' }, { type: 'system.environment.get' }],
      until: ['printer.paper.low'] },
    cue('printer', { paper: 0 }),
    { send: { type: 'printer.print', data: picture }, until: ['printer.nopaper'] },
    cue('printer', { connected: false }),
    { send: { type: 'printer.print', data: picture } },
    { send: { type: 'printer.print', data: picture, ignore_not_connected: true } },
    { send: { type: 'printer.state', ignore_not_connected: true } },

    { send: { type: 'dispenser.dispense' }, until: ['dispenser.card.dispensing', 'dispenser.sensor'] },
    cue('dispenser', { taken: true }),
    cue('dispenser', { cards: 0 }),
    { send: { type: 'dispenser.dispense' }, until: ['dispenser.card.empty'] },
    cue('dispenser', { connected: false }),
    { send: { type: 'dispenser.dispense' } },

    { send: { type: 'scanner.passport.request', timeout: 15 },
      until: ['scanner.passport.response', 'scanner.passport.finish'] },
    cue('passport-scanner', { present: false }),
    { send: { type: 'scanner.passport.request', timeout: 1 }, until: ['scanner.passport.error'] },
    { send: { type: 'scanner.document.request', resolution: 300, mode: 1, brightness: 3 },
      until: ['scanner.document.finish'] },
    cue('document-scanner', { connected: false }),
    { send: { type: 'scanner.document.request' }, until: ['scanner.document.response'] },

    { send: { type: 'system.drive.control', drive_mode: 1 }, until: ['system.drive.mode'] },
    { send: { type: 'system.drive.control', drive_point: 3 }, until: ['system.drive.status'] },
    { send: { type: 'system.drive.control', drive_charger: true }, until: ['system.drive.charge'] },

    { send: { type: 'keyboard.control.request', set_locale: 'de_DE', show: true, get_locale: true,
      is_visible: true }, until: ['keyboard.control.response'] },
    { send: { type: 'keyboard.control.request', hide: true } },
    { send: { type: 'system.settings.get', settings_type: 'application' },
      until: ['system.settings.load'] },
    { send: { type: 'system.settings.get', settings_type: 'system', group: 'sound' } },
    { send: { type: 'system.settings.get', settings_type: 'none' } },
    { send: { type: 'system.environment.get' }, until: ['system.environment.load'] },
    { send: { type: 'system.sound.properties', get_volume: true, get_mic: true },
      until: ['system.sound.load'] },
    { send: { type: 'system.sound.properties', set_volume: 30 },
      then: [{ type: 'system.sound.properties', set_volume: 50 }] },
    { send: { type: 'system.play.external', stop: true } },
    { send: { type: 'record.audio.request', stop: true } },

    { send: { type: 'database.user.request', get_user: 1 }, until: ['database.user.response'] },
    { send: { type: 'database.user.request', get_user: 9007199254740991 } },
    { send: { type: 'face.recognize.control', add_face: 1 }, until: ['face.add.status'] },
    { send: { type: 'face.recognize.control', tracking_auto: true } },
    { send: { type: 'system.general.touch', x: -5, y: -5 } },
    cue('enter', { id: 1 }, ['user.has.user', 'dialog.greeting.load']),
    cue('leave', {}, ['user.lost.user']),

    { send: { type: 'sip.control', call_start: { number: '100' } }, until: ['sip.call.response', 'sip.events'] },
    { send: { type: 'sip.control', call_stop: true }, until: ['sip.events'] },
    { send: { type: 'sip.control', play_text: { number: '100', text: 'Your visitor is here' } },
      until: ['sip.text.response'] },
    { send: { type: 'sip.control', clear_queue: true } },
    { send: { type: 'mail.sender.request', email: 'ann@example.com', subject: 'Visitor',
      body: 'A visitor is here.' }, until: ['mail.sender.response'] },
    { send: { type: 'operator.call.request', call: true } },
    cue('operator', { response: 1, control: true }, ['operator.call.response',
      'operator.control.status']),
    { send: { type: 'operator.call.request', call: false }, until: ['operator.control.status'] },
    { send: { type: 'system.scripts.control', start: 'welcome' },
      until: ['system.scripts.start.result'] },
    { send: { type: 'dialog.question.answer', text: 'Yes' } },
    cue('ask', { text: 'Tea?', answers: ['Yes', 'No'] }, ['dialog.question.new']),
    cue('ask', {}, ['dialog.question.cancel']),

    // Values on their way to the page.
    event({ text: 'Grüß Gott, 世界 🤖', empty: '', list: [1, [2, [3]]], nothing: null, yes: true }),
    event({ small: 5e-324, large: 1.7976931348623157e308, most: 9007199254740991, minus: -0.5 }),
    event({ long }),
    event({ id: 'mine', type: 'mine', __proto__x: 1 }),
    cue('tell', { topic: 'system.page.hidden', attributes: { close: true } }, ['system.page.hidden']),
    cue('tell', { topic: 'system.settings.update' }, ['system.settings.update']),
  ];
})();
