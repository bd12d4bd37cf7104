// Generated from protocol/topics.json by scripts/client-types.py. Edit that.

import type { EventTopics } from '../topics.js'

/** What the robot may tell, one example for each topic. */
export const examples: EventTopics = {
  'system.scripts.start.result': {
    "result": [
      "started"
    ]
  },
  'system.interaction.state': {
    "state": "Interaction",
    "Reason": 1
  },
  'dialog.replica.load': {
    "replica": {
      "id": {
        "id": 12,
        "uuid": "{f4d1a0b7-6e39-4c58-92a5-d80b3e7c1f46}"
      },
      "anchor": {
        "id": 0,
        "uuid": "{00000000-0000-0000-0000-000000000000}"
      },
      "category": {
        "id": 3,
        "uuid": "{00000000-0000-0000-0000-000000000000}"
      },
      "text": "Welcome!",
      "screen_text": "Welcome",
      "url": "",
      "actions": "wave,smile",
      "animation": 0,
      "type": 1
    }
  },
  'system.general.setted': {
    "setted_id": 7
  },
  'database.user.response': {
    "response": {
      "get_user": {
        "id": 7,
        "name": "Ann",
        "age": 34,
        "gender": 1,
        "extra_data": {
          "badge": 12
        },
        "acquaintance_date": "2026-05-04T10:15:00",
        "last_visit": "2026-05-05T09:00:00"
      },
      "del_user": false
    }
  },
  'dialog.question.new': {
    "text": "Tea or coffee?",
    "answers": [
      "Tea",
      "Coffee"
    ]
  },
  'dialog.question.cancel': {},
  'printer.success': {},
  'printer.error': {},
  'printer.nopaper': {},
  'printer.noprinter': {},
  'printer.paper.low': {},
  'printer.state.info': {
    "state": "ERROR",
    "error_code": 7,
    "error_message": "jam"
  },
  'dispenser.nodispenser': {},
  'dispenser.not.connected': {},
  'dispenser.communication.timeout': {},
  'dispenser.card.dispensing': {},
  'dispenser.card.preempty': {},
  'dispenser.card.empty': {},
  'dispenser.cardbin.full': {},
  'dispenser.card.error': {},
  'dispenser.sensor': {
    "sensor": "DispSensor"
  },
  'scanner.document.response': {
    "success": true
  },
  'scanner.passport.response': {
    "success": true
  },
  'scanner.document.state': {
    "state": 1
  },
  'scanner.passport.state': {
    "state": 1
  },
  'scanner.document.progress': {
    "progress": "0.333333"
  },
  'scanner.document.error': {
    "code": "5",
    "text": "No document"
  },
  'scanner.passport.error': {
    "code": "5",
    "text": "No document"
  },
  'scanner.document.finish': {
    "data": {
      "name": "ERIKA",
      "number": "C01X00T47"
    }
  },
  'scanner.passport.finish': {
    "data": {
      "name": "ERIKA",
      "number": "C01X00T47"
    }
  },
  'keyboard.control.response': {
    "locale": "en_GB"
  },
  'system.settings.load': {
    "settings": {
      "{0b6f3c1e-7a54-4d2b-8e19-5f0c9d7a3b61}": {
        "settings_type": "system",
        "group": "sound",
        "name": "volume",
        "value": 40
      }
    }
  },
  'system.environment.load': {
    "environment": {
      "uuid_robot": "{5d1c8f4a-93b2-4e07-a6c1-2f8e4b7d9a30}",
      "uuid_owner": "{c2a7e6b1-08d4-4f95-b3e7-6a1d5c9f0e82}",
      "name": "Robbie",
      "id": "robot-7\n",
      "date_of_creation": "2026-04-01T10:15:00"
    }
  },
  'system.sound.load': {
    "sound": {
      "volume": 40
    }
  },
  'system.play.status': {
    "status": "PlayingState"
  },
  'record.audio.response': {
    "file": "/tmp/record_2026-05-04_10:15:00.000.wav"
  },
  'sip.call.response': {
    "result": true
  },
  'sip.file.response': {
    "uuid": "{9e4b1d70-5c2f-4a8e-b6d3-17f0a9c5e248}"
  },
  'sip.text.response': {
    "uuid": "{9e4b1d70-5c2f-4a8e-b6d3-17f0a9c5e248}"
  },
  'sip.events': {
    "event": "public_call",
    "state": 3
  },
  'mail.sender.response': {
    "status": "error",
    "code": "535",
    "text": "Authentication failed"
  },
  'user.has.user': {
    "user_id": 7,
    "name": "Ann",
    "age": 34,
    "gender": 1,
    "extra_data": {
      "badge": 12
    },
    "acquaintance_date": "2026-05-04T10:15:00",
    "last_visit": "2026-05-05T09:00:00"
  },
  'user.lost.user': {},
  'dialog.greeting.load': {
    "greeting": {
      "id": {
        "id": 12,
        "uuid": "{f4d1a0b7-6e39-4c58-92a5-d80b3e7c1f46}"
      },
      "anchor": {
        "id": 0,
        "uuid": "{00000000-0000-0000-0000-000000000000}"
      },
      "category": {
        "id": 3,
        "uuid": "{00000000-0000-0000-0000-000000000000}"
      },
      "text": "Welcome!",
      "url": "",
      "actions": "wave,smile",
      "animation": 0,
      "type": 1
    }
  },
  'dialog.replica.extra.load': {
    "replica": {
      "id": {
        "id": 12,
        "uuid": "{f4d1a0b7-6e39-4c58-92a5-d80b3e7c1f46}"
      },
      "anchor": {
        "id": 0,
        "uuid": "{00000000-0000-0000-0000-000000000000}"
      },
      "category": {
        "id": 3,
        "uuid": "{00000000-0000-0000-0000-000000000000}"
      },
      "text": "Welcome!",
      "screen_text": "Welcome",
      "url": "",
      "actions": "wave,smile",
      "animation": 0,
      "type": 1
    }
  },
  'dialog.answer.load': {
    "answer": {
      "id": {
        "id": 5,
        "uuid": "{00000000-0000-0000-0000-000000000000}"
      },
      "source": 1,
      "id_pattern": {
        "id": 0,
        "uuid": "{00000000-0000-0000-0000-000000000000}"
      },
      "pattern": "hello *",
      "question": "hello robot",
      "replica": {
        "id": {
          "id": 12,
          "uuid": "{f4d1a0b7-6e39-4c58-92a5-d80b3e7c1f46}"
        },
        "anchor": {
          "id": 0,
          "uuid": "{00000000-0000-0000-0000-000000000000}"
        },
        "category": {
          "id": 3,
          "uuid": "{00000000-0000-0000-0000-000000000000}"
        },
        "text": "Welcome!",
        "screen_text": "Welcome",
        "url": "",
        "actions": "wave,smile",
        "animation": 0,
        "type": 1
      }
    }
  },
  'face.recognize.info': {
    "info": {
      "{1f9a6d3c-40e7-4b82-a5d9-c3f70b8e2614}": {
        "id": 7,
        "type": 2,
        "is_tracking": true,
        "id_track": 12,
        "gender": 1,
        "age": 34.5,
        "emotion": "happy",
        "matches": {
          "{82c5b0e9-d71f-4a36-9e48-0b5f3d6a7c19}": {
            "type": 2,
            "id": 7,
            "score": 0.93
          }
        }
      }
    }
  },
  'dialog.user.said': {
    "text": "Hello",
    "is_finish": true
  },
  'dialog.action': {
    "meta": [
      "show",
      "map"
    ]
  },
  'dialog.robot.replic.start': {
    "text": "Good morning!"
  },
  'dialog.robot.replic.finish': {},
  'system.settings.update': {},
  'system.scripts.end': {},
  'system.custom.event.core': {
    "floor": 3
  },
  'system.application.finish': {
    "name": "reception",
    "status": 0,
    "data": {
      "visitors": 2
    }
  },
  'system.drive.mode': {
    "mode": 1
  },
  'system.drive.status': {
    "status": 2
  },
  'system.drive.charge': {
    "charge": 1
  },
  'face.add.status': {
    "status": 2
  },
  'face.recognize.general': {
    "general": 12
  },
  'operator.control.status': {
    "status": true
  },
  'operator.call.response': {
    "response": "2"
  },
  'system.page.hidden': {
    "close": false
  },
  'parameters.response': {
    "floor": 3
  },
}
